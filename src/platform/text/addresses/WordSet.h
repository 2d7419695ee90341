#pragma once

#include <QStringView>
#include <algorithm>
#include <array>
#include <string_view>

namespace quorvel {

/// The words of a text, sorted while compiling. Entries are folded and stand between blanks, or
/// between bars where an entry has blanks itself.
template <const auto& text, char16_t separator = u' '>
class WordSet {
public:
    static bool contains(QStringView word) {
        const std::size_t size = std::size_t(word.size());
        if (size > longest)
            return false;
        const auto* const first = words.data() + starts[size];
        const auto* const last = words.data() + starts[size + 1];
        return std::binary_search(first, last, std::u16string_view(word.utf16(), size));
    }

private:
    static constexpr std::u16string_view all{text};
    static constexpr std::size_t count = 1 + std::ranges::count(all, separator);

    /// By length first: most comparisons then need no look at the letters.
    static constexpr bool precedes(std::u16string_view left, std::u16string_view right) {
        return left.size() != right.size() ? left.size() < right.size() : left < right;
    }

    static constexpr std::array<std::u16string_view, count> cut() {
        std::array<std::u16string_view, count> result;
        std::size_t start = 0;
        for (std::u16string_view& word : result) {
            const std::size_t end = std::min(all.find(separator, start), all.size());
            word = all.substr(start, end - start);
            start = end + 1;
        }
        std::ranges::sort(result, precedes);
        return result;
    }

    static constexpr std::array<std::u16string_view, count> words = cut();
    static constexpr std::size_t longest = words.back().size();

    /// Where the words of each length begin: only those are searched.
    static constexpr std::array<quint16, longest + 2> indexed() {
        std::array<quint16, longest + 2> result{};
        for (std::size_t size = 0; size < result.size(); ++size)
            result[size] = quint16(std::ranges::count_if(
                words, [size](std::u16string_view word) { return word.size() < size; }));
        return result;
    }

    static constexpr std::array<quint16, longest + 2> starts = indexed();
};

} // namespace quorvel
