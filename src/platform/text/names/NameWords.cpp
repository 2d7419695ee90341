#include "platform/text/names/NameWords.h"

#include "foundation/Folding.h"

#include <QStringTokenizer>

#include <array>

namespace quorvel {

namespace {

/// Letters that no mark was put on, as they are written where the keyboard lacks them; the lists
/// are written so too.
QString plain(const QString& word) {
    constexpr QStringView letters = u"ðþøłđæœıə";
    constexpr std::array<QLatin1StringView, 9> replacements{
        QLatin1StringView("d"),  QLatin1StringView("th"), QLatin1StringView("o"),
        QLatin1StringView("l"),  QLatin1StringView("d"),  QLatin1StringView("ae"),
        QLatin1StringView("oe"), QLatin1StringView("i"),  QLatin1StringView("e")};
    QString result;
    result.reserve(word.size());
    for (const QChar c : word) {
        const qsizetype at = c.unicode() < 0x80 ? -1 : letters.indexOf(c);
        if (at < 0)
            result += c.isSpace() ? QChar(u' ') : c;
        else
            result += replacements[std::size_t(at)];
    }
    return result;
}

QStringView withoutMarksAround(QStringView word) {
    while (!word.isEmpty() && !word.back().isLetter())
        word.chop(1);
    while (!word.isEmpty() && !word.front().isLetter())
        word = word.sliced(1);
    return word;
}

} // namespace

QStringList foldedWords(const QString& text) {
    QStringList words;
    const QString all = plain(folded(text));
    for (const QStringView part : QStringView(all).tokenize(u' ', Qt::SkipEmptyParts)) {
        const QStringView word = withoutMarksAround(part);
        if (!word.isEmpty())
            words.append(word.toString());
    }
    return words;
}

} // namespace quorvel
