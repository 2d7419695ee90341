#pragma once

#include "smart/masking/CharacterBits.h"
#include "smart/masking/CodeLabels.h"
#include "smart/masking/KeyLabels.h"
#include "smart/masking/PasswordLabels.h"
#include "smart/masking/PlainLabels.h"

#include <algorithm>

namespace quorvel {

inline constexpr size_t formCount =
    std::size(passwordLabels) + std::size(codeLabels) + std::size(keyLabels);

inline constexpr std::array<LabelForm, formCount> labelForms = [] {
    std::array<LabelForm, formCount> forms{};
    auto next = std::ranges::copy(passwordLabels, forms.begin()).out;
    next = std::ranges::copy(codeLabels, next).out;
    std::ranges::copy(keyLabels, next);
    return forms;
}();

inline constexpr TrigramFilter labelEnds = [] {
    TrigramFilter filter;
    for (const LabelForm& form : labelForms) {
        const qsizetype size = form.letters.size();
        const char16_t last = form.letters[size - 1].unicode();
        const char16_t second = form.letters[size - 2].unicode();
        if (size > 2)
            filter.add(form.letters[size - 3].unicode(), second, last);
        for (char16_t first = 0; size == 2 && first < 32; ++first)
            filter.add(first, second, last);
    }
    for (const QStringView end : accentedEnds)
        filter.add(end[0].unicode(), end[1].unicode(), end[2].unicode());
    // A short last word.
    filter.add(u' ', u'b', u'y');
    return filter;
}();

inline constexpr TrigramFilter plainBeginnings = [] {
    TrigramFilter filter;
    for (const PlainLabel& label : plainLabels) {
        const QStringView name = label.letters;
        if (name.size() > 2)
            filter.add(name[0].unicode(), name[1].unicode(), name[2].unicode());
        for (char16_t third = 0; name.size() == 2 && third < 32; ++third)
            filter.add(name[0].unicode(), name[1].unicode(), third);
    }
    return filter;
}();

/// The rows of the table by the low bits of their last two letters.
struct LabelIndex {
    static constexpr unsigned buckets = 1024;
    std::array<quint16, formCount> row{};
    std::array<quint16, buckets + 1> begin{};
};

constexpr unsigned bucketOf(char16_t second, char16_t last) {
    return (second & 31U) << 5 | (last & 31U);
}

constexpr unsigned bucketOf(const LabelForm& form) {
    const qsizetype size = form.letters.size();
    return bucketOf(form.letters[size - 2].unicode(), form.letters[size - 1].unicode());
}

inline constexpr LabelIndex labelIndex = [] {
    LabelIndex index;
    for (const LabelForm& form : labelForms)
        ++index.begin[bucketOf(form) + 1];
    for (unsigned bucket = 0; bucket < LabelIndex::buckets; ++bucket)
        index.begin[bucket + 1] = quint16(index.begin[bucket + 1] + index.begin[bucket]);
    std::array<quint16, LabelIndex::buckets> filled{};
    for (size_t row = 0; row < formCount; ++row) {
        const unsigned bucket = bucketOf(labelForms[row]);
        index.row[size_t(index.begin[bucket]) + filled[bucket]++] = quint16(row);
    }
    return index;
}();

} // namespace quorvel
