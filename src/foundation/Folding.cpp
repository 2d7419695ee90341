#include "foundation/Folding.h"

#include "foundation/CodePoints.h"

namespace quorvel {

namespace {

constexpr char32_t firstBeyondAscii = 0x80;

bool isMark(char32_t character) {
    const auto category = QChar::category(character);
    return category >= QChar::Mark_NonSpacing && category <= QChar::Mark_Enclosing;
}

void appendCaseFolded(char32_t character, QString& to) {
    constexpr char32_t sharpS = 0xDF;
    constexpr char32_t capitalSharpS = 0x1E9E;
    if (character == sharpS || character == capitalSharpS)
        to += QLatin1String("ss");
    else
        to += QStringView(QChar::fromUcs4(QChar::toCaseFolded(character)));
}

} // namespace

void appendFolded(char32_t character, QString& to) {
    if (character < firstBeyondAscii) {
        const bool isUpper = character >= U'A' && character <= U'Z';
        to += QChar(char16_t(isUpper ? character + (U'a' - U'A') : character));
        return;
    }
    if (isMark(character))
        return;
    const QString parts = QChar::decomposition(character);
    if (parts.isEmpty() || QChar::decompositionTag(character) != QChar::Canonical)
        return appendCaseFolded(character, to);
    // Decompositions are nested: a letter with two marks gives a letter with one mark and a mark.
    for (CodePoints part(parts); part.hasNext();)
        appendFolded(part.next(), to);
}

QString folded(QStringView text) {
    QString result;
    result.reserve(text.size());
    for (CodePoints character(text); character.hasNext();)
        appendFolded(character.next(), result);
    return result;
}

} // namespace quorvel
