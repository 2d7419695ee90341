#pragma once

#include <QString>

#include <array>

namespace quorvel {

inline constexpr char16_t asciiEnd = 0x80;

/// \w below U+0080.
inline constexpr auto asciiWordCharacters = [] {
    std::array<bool, asciiEnd> table{};
    for (std::size_t c = 0; c < asciiEnd; ++c)
        table[c] =
            (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
    return table;
}();

/// Classes of characters and word boundaries as ICU's regular expressions have them
/// (https://unicode-org.github.io/icu/userguide/strings/regexp.html).

/// \w: letters, marks, decimal digits, connecting punctuation, the zero-width joiners.
bool isWordCharacter(char32_t character);

/// \s: white space and separators.
bool isPatternSpace(QChar character);

/// \b: a word character on one side only; a position before a mark that combines with what stands
/// before it is none, and marks are looked through backwards.
bool isWordBoundaryAnywhere(QStringView text, qsizetype position);

inline bool isWordBoundary(QStringView text, qsizetype position) {
    if (position > 0 && position < text.size()) {
        const char16_t before = text.utf16()[position - 1];
        const char16_t after = text.utf16()[position];
        if (before < asciiEnd && after < asciiEnd)
            return asciiWordCharacters[before] != asciiWordCharacters[after];
    }
    return isWordBoundaryAnywhere(text, position);
}

constexpr bool isAsciiDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}
constexpr bool isAsciiUpper(QChar c) {
    return c >= u'A' && c <= u'Z';
}
constexpr bool isAsciiLetter(QChar c) {
    return isAsciiUpper(c) || (c >= u'a' && c <= u'z');
}
constexpr bool isAsciiHexDigit(QChar c) {
    return isAsciiDigit(c) || (c >= u'a' && c <= u'f') || (c >= u'A' && c <= u'F');
}

/// \d within the basic plane: a decimal digit of any script.
inline bool isDecimalDigit(QChar c) {
    return isAsciiDigit(c) || (c.unicode() >= 0x80 && c.isDigit());
}

} // namespace quorvel
