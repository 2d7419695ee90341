#pragma once

#include <QStringView>

#include <array>

namespace quorvel {

/// What a UTF-16 unit can be part of; a unit has several.
enum CharacterBit : quint8 {
    lowerBit = 1,
    upperBit = 2,
    digitBit = 4,
    /// Letters of all scripts, digits, underscore.
    wordBit = 8,
    /// What encoded data is made of: word characters and "+ / = - . ~".
    dataBit = 16,
    blankBit = 32,
    lineEndBit = 64,
    /// Visible ASCII that is no letter or digit.
    symbolBit = 128,
};

constexpr quint8 bitsOfAscii(char16_t unit) {
    if (unit >= u'a' && unit <= u'z')
        return lowerBit | wordBit | dataBit;
    if (unit >= u'A' && unit <= u'Z')
        return upperBit | wordBit | dataBit;
    if (unit >= u'0' && unit <= u'9')
        return digitBit | wordBit | dataBit;
    if (unit == u'_')
        return wordBit | dataBit | symbolBit;
    for (const char16_t mark : {u'+', u'/', u'=', u'-', u'.', u'~'})
        if (unit == mark)
            return dataBit | symbolBit;
    if (unit == u'\n' || unit == u'\r')
        return blankBit | lineEndBit;
    if (unit == u' ' || (unit >= 9 && unit <= 12))
        return blankBit;
    return unit > u' ' && unit < 127 ? symbolBit : 0;
}

inline constexpr auto asciiBits = [] {
    std::array<quint8, 128> bits{};
    for (char16_t unit = 0; unit < 128; ++unit)
        bits[unit] = bitsOfAscii(unit);
    return bits;
}();

constexpr quint8 bitsBeyondAscii(char16_t unit) {
    if (unit == 0xA0 || unit == 0x202F || unit == 0x3000 || (unit >= 0x2000 && unit <= 0x200A))
        return blankBit;
    if (unit == 0x2028 || unit == 0x2029 || unit == 0x85)
        return blankBit | lineEndBit;
    const bool isLatinMark = unit < 0xC0 && unit != 0xAA && unit != 0xB5 && unit != 0xBA;
    const bool isGeneralMark = unit >= 0x2010 && unit <= 0x2BFF;
    const bool isWideMark = unit >= 0x3001 && unit <= 0x3020;
    const bool isFullMark =
        (unit >= 0xFF01 && unit <= 0xFF0F) || (unit >= 0xFF1A && unit <= 0xFF20) || unit == 0xFFFD;
    return isLatinMark || isGeneralMark || isWideMark || isFullMark || unit == 0xD7 || unit == 0xF7
               ? 0
               : wordBit;
}

constexpr quint8 bitsOf(QChar unit) {
    const char16_t code = unit.unicode();
    return code < 128 ? asciiBits[code] : bitsBeyondAscii(code);
}

constexpr bool hasBit(QChar unit, int bits) {
    return (bitsOf(unit) & bits) != 0;
}

constexpr bool isAsciiAlphanumeric(QChar unit) {
    return hasBit(unit, lowerBit | upperBit | digitBit);
}

constexpr bool isAsciiLetter(QChar unit) {
    return hasBit(unit, lowerBit | upperBit);
}

constexpr bool isLetter(QChar unit) {
    return hasBit(unit, wordBit) && !hasBit(unit, digitBit) && unit != u'_';
}

/// The unit at an index, a NUL beyond the ends.
constexpr QChar unitAt(QStringView text, qsizetype index) {
    return index >= 0 && index < text.size() ? text[index] : QChar();
}

/// Where units with one of the bits end, from `start` on.
inline qsizetype endOfBits(QStringView text, qsizetype start, int bits) {
    while (start < text.size() && hasBit(text[start], bits))
        ++start;
    return start;
}

/// Blanks of one line, at most a few.
inline qsizetype afterBlanks(QStringView text, qsizetype start) {
    constexpr qsizetype most = 40;
    const qsizetype limit = qMin(text.size(), start + most);
    while (start < limit && bitsOf(text[start]) == blankBit)
        ++start;
    return start;
}

/// A set of the three-letter beginnings or ends in a table: says quickly "surely not". Upper and
/// lower case of one letter fall together, also in Cyrillic and Greek.
class TrigramFilter {
public:
    constexpr void add(char16_t first, char16_t second, char16_t third) {
        const unsigned key = keyOf(first, second, third);
        m_bits[key >> 6] |= quint64(1) << (key & 63);
    }
    constexpr bool mayHold(QChar first, QChar second, QChar third) const {
        const unsigned key = keyOf(first.unicode(), second.unicode(), third.unicode());
        return (m_bits[key >> 6] >> (key & 63) & 1) != 0;
    }

private:
    static constexpr unsigned keyOf(char16_t first, char16_t second, char16_t third) {
        return bitsOfUnit(first) << 10 | bitsOfUnit(second) << 5 | bitsOfUnit(third);
    }
    /// In the extended Latin blocks case is not one bit, so all of them share a place.
    static constexpr unsigned bitsOfUnit(char16_t unit) {
        return unit >= 0x100 && unit < 0x370 ? 0 : unit & 31;
    }

    std::array<quint64, 512> m_bits{};
};

/// The same for beginnings, where upper and lower case differ.
class BeginningFilter {
public:
    constexpr void add(char16_t first, char16_t second, char16_t third) {
        const unsigned key = keyOf(first, second, third);
        m_bits[key >> 6] |= quint64(1) << (key & 63);
    }
    constexpr bool mayHold(QChar first, QChar second, QChar third) const {
        const unsigned key = keyOf(first.unicode(), second.unicode(), third.unicode());
        return (m_bits[key >> 6] >> (key & 63) & 1) != 0;
    }

private:
    static constexpr unsigned keyOf(char16_t first, char16_t second, char16_t third) {
        return (first & 63U) << 10 | (second & 63U) << 4 | (third & 15U);
    }

    std::array<quint64, 1024> m_bits{};
};

} // namespace quorvel
