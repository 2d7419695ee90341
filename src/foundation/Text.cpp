#include "foundation/Text.h"

#include <QStringBuilder>
#include <QTextBoundaryFinder>

#include <algorithm>

namespace quorvel {

namespace {

const QString ellipsis = QStringLiteral("\u2026");

/// Position after the first `count` characters, or -1 when the text has fewer.
qsizetype endOfFirst(const QString& text, int count) {
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    qsizetype position = 0;
    for (int i = 0; i < count && position >= 0; ++i)
        position = finder.toNextBoundary();
    return position;
}

qsizetype startOfLast(const QString& text, int count) {
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    finder.toEnd();
    qsizetype position = text.size();
    for (int i = 0; i < count && position > 0; ++i)
        position = finder.toPreviousBoundary();
    return position;
}

/// A character may be many units long (families, stacked marks); beyond this many it is cut.
constexpr int mostUnitsPerCharacter = 64;

/// Units that are a character each, whatever stands beside them: most of the world's menu titles
/// are made of nothing else, and looking for boundaries is a hundred times slower.
bool isSimple(QChar c) {
    constexpr char16_t firstCombiningMark = 0x300;
    return c.unicode() < firstCombiningMark && c != u'\r' && c.unicode() != 0xAD;
}

bool areSimple(QStringView units) {
    return std::all_of(units.begin(), units.end(), isSimple);
}

/// The first `count` characters, or the whole text when it has no more.
QString firstCharacters(const QString& text, int count) {
    if (areSimple(QStringView(text).left(count + 1)))
        return text.left(count);
    const QString window = text.left(qsizetype(count) * mostUnitsPerCharacter);
    const qsizetype end = endOfFirst(window, count);
    return end < 0 ? window : window.left(end);
}

QString lastCharacters(const QString& text, int count) {
    if (areSimple(QStringView(text).right(count + 1)))
        return text.right(count);
    const QString window = text.right(qsizetype(count) * mostUnitsPerCharacter);
    return window.mid(startOfLast(window, count));
}

/// Control characters, and the separators of lines and paragraphs.
bool breaksLine(QChar c) {
    const char16_t unit = c.unicode();
    return unit < 0x20 || (unit >= 0x7F && unit < 0xA0) || unit == 0x2028 || unit == 0x2029;
}

/// Bidirectional embeddings, overrides and isolates: in a title they would reorder the menu.
bool reordersText(QChar c) {
    return (c >= QChar(0x202A) && c <= QChar(0x202E)) || (c >= QChar(0x2066) && c <= QChar(0x2069));
}

/// A character may bear any number of marks, which would be drawn over everything above it.
QString withFewMarks(QString line) {
    constexpr int mostMarks = 4;
    constexpr char16_t firstMark = 0x300;
    int marks = 0;
    line.removeIf([&marks](QChar c) {
        marks = c.unicode() >= firstMark && c.isMark() ? marks + 1 : 0;
        return marks > mostMarks;
    });
    return line;
}

} // namespace

qsizetype characterCount(QStringView text) {
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text.data(), text.size());
    qsizetype count = 0;
    while (finder.toNextBoundary() >= 0)
        ++count;
    return count;
}

QString shortened(const QString& text, int limit, int tail) {
    if (limit < 2)
        return ellipsis;
    if (text.size() <= limit || firstCharacters(text, limit).size() == text.size())
        return text;
    const int kept = std::max(std::min(limit - 2, tail), 1);
    return firstCharacters(text, limit - kept - 1) + ellipsis + lastCharacters(text, kept);
}

QString singleLine(const QString& text, qsizetype headUnits, qsizetype tailUnits) {
    const QStringView visible = QStringView(text).trimmed();
    QString line = visible.size() <= headUnits + tailUnits
                       ? visible.toString()
                       : visible.first(headUnits) % ellipsis % visible.last(tailUnits);
    line.removeIf([](QChar c) { return reordersText(c); });
    std::replace_if(line.begin(), line.end(), breaksLine, QLatin1Char(' '));
    return withFewMarks(line.trimmed());
}

} // namespace quorvel
