#include "smart/rules/Characters.h"

namespace quorvel {

namespace {

bool isLetterNumber(char32_t c) {
    return QChar::category(c) == QChar::Number_Letter;
}

/// Letters in circles and squares count as alphabetic although they are symbols.
bool isEnclosedLetter(char32_t c) {
    return (c >= 0x24B6 && c <= 0x24E9) || (c >= 0x1F130 && c <= 0x1F149) ||
           (c >= 0x1F150 && c <= 0x1F169) || (c >= 0x1F170 && c <= 0x1F189);
}

/// Extends the character before it, or formats invisibly.
bool isLookedThrough(char32_t c) {
    const auto category = QChar::category(c);
    return category == QChar::Mark_NonSpacing || category == QChar::Mark_Enclosing ||
           category == QChar::Other_Format;
}

char32_t characterAt(QStringView text, qsizetype position) {
    const QChar unit = text[position];
    if (unit.isHighSurrogate() && position + 1 < text.size() && text[position + 1].isLowSurrogate())
        return QChar::surrogateToUcs4(unit, text[position + 1]);
    return unit.unicode();
}

/// Where the character that ends at `position` begins.
qsizetype characterBefore(QStringView text, qsizetype position) {
    const bool isPair = position >= 2 && text[position - 1].isLowSurrogate() &&
                        text[position - 2].isHighSurrogate();
    return position - (isPair ? 2 : 1);
}

bool isWordBefore(QStringView text, qsizetype position) {
    while (position > 0) {
        position = characterBefore(text, position);
        const char32_t character = characterAt(text, position);
        if (character < asciiEnd)
            return asciiWordCharacters[character];
        if (!isLookedThrough(character))
            return isWordCharacter(character);
    }
    return false;
}

} // namespace

bool isWordCharacter(char32_t character) {
    if (character < asciiEnd)
        return asciiWordCharacters[character];
    constexpr char32_t nonJoiner = 0x200C;
    constexpr char32_t joiner = 0x200D;
    return QChar::isLetter(character) || QChar::isMark(character) || QChar::isDigit(character) ||
           QChar::category(character) == QChar::Punctuation_Connector || character == nonJoiner ||
           character == joiner || isLetterNumber(character) || isEnclosedLetter(character);
}

bool isPatternSpace(QChar character) {
    const char16_t c = character.unicode();
    if (c < asciiEnd)
        return c == u' ' || (c >= u'\t' && c <= u'\r' && c != u'\v');
    const auto category = character.category();
    return category >= QChar::Separator_Space && category <= QChar::Separator_Paragraph;
}

bool isWordBoundaryAnywhere(QStringView text, qsizetype position) {
    bool isWordAfter = false;
    if (position < text.size()) {
        const char32_t character = characterAt(text, position);
        if (character >= asciiEnd && isLookedThrough(character))
            return false;
        isWordAfter = isWordCharacter(character);
    }
    return isWordAfter != isWordBefore(text, position);
}

} // namespace quorvel
