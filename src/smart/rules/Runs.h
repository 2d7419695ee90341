#pragma once

#include "smart/rules/Characters.h"

#include <algorithm>

namespace quorvel {

/// Scanning for runs of one class of characters. A class has two tests: `contains`, and
/// `isPlainly`, which may say no to what is inside and must be free of branches, so that the
/// compiler takes many characters at once.

/// The first position from `from` on whose character is not inside; the text's size when all are.
template <typename Class>
qsizetype endOfRun(QStringView text, qsizetype from) {
    constexpr qsizetype block = 32;
    const char16_t* units = text.utf16();
    const auto isBlockInside = [&](qsizetype start) {
        char16_t isOutside = 0;
        for (qsizetype i = 0; i < block; ++i)
            isOutside |= char16_t(!Class::isPlainly(units[start + i]));
        return isOutside == 0;
    };
    const qsizetype shortEnd = std::min(text.size(), from + block / 4);
    while (from < shortEnd && Class::contains(units[from]))
        ++from;
    if (from < shortEnd)
        return from;
    while (from + block <= text.size() && isBlockInside(from))
        from += block;
    while (from < text.size() && Class::contains(units[from]))
        ++from;
    return from;
}

/// Whether `use(start, end)` holds for one of the runs of at least `fewest` characters of a class,
/// asked in their order. Every such run covers a multiple of `fewest`, so the rest of the text is
/// hardly looked at.
template <typename Class, typename Use>
bool anyRun(QStringView text, qsizetype fewest, const Use& use) {
    const char16_t* units = text.utf16();
    qsizetype lowest = 0;
    for (qsizetype at = fewest - 1; at < text.size(); at += fewest) {
        if (!Class::contains(units[at]))
            continue;
        qsizetype start = at;
        while (start > lowest && Class::contains(units[start - 1]))
            --start;
        const qsizetype end = endOfRun<Class>(text, at);
        if (end - start >= fewest && use(start, end))
            return true;
        lowest = at = end;
    }
    return false;
}

struct Digits {
    static bool isPlainly(char16_t unit) { return char16_t(unit - u'0') < 10; }
    static bool contains(char16_t unit) { return isDecimalDigit(unit); }
};

struct LettersAndDigits {
    static bool isPlainly(char16_t unit) {
        return Digits::isPlainly(unit) | (char16_t((unit | 0x20) - u'a') < 26);
    }
    static bool contains(char16_t unit) { return isPlainly(unit) || Digits::contains(unit); }
};

/// All but the given ones of the basic Latin block.
template <char16_t... excluded>
struct AllBut {
    static constexpr auto isExcluded = [] {
        std::array<bool, asciiEnd> table{};
        ((table[excluded] = true), ...);
        return table;
    }();

    // Masks instead of truth values: the compiler then takes many characters at once.
    static bool isPlainly(char16_t unit) {
        return !((unit == excluded ? char16_t(0xffff) : char16_t(0)) | ...);
    }
    static bool contains(char16_t unit) { return unit >= asciiEnd || !isExcluded[unit]; }
};

} // namespace quorvel
