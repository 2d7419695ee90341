#include "foundation/Text.h"

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

bool breaksLine(QChar c) {
    return c.category() == QChar::Other_Control || c.category() == QChar::Separator_Line ||
           c.category() == QChar::Separator_Paragraph;
}

/// Bidirectional embeddings, overrides and isolates: in a title they would reorder the menu.
bool reordersText(QChar c) {
    return (c >= QChar(0x202A) && c <= QChar(0x202E)) || (c >= QChar(0x2066) && c <= QChar(0x2069));
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
    const qsizetype window = qsizetype(limit + 1) * mostUnitsPerCharacter;
    const QString head = text.left(window);
    if (text.size() <= limit)
        return text;
    const qsizetype endOfLimit = endOfFirst(head, limit);
    if (head.size() == text.size() && (endOfLimit < 0 || endOfLimit == text.size()))
        return text;
    const int kept = std::max(std::min(limit - 2, tail), 1);
    const qsizetype cut = endOfFirst(head, limit - kept - 1);
    const QString end = text.right(window);
    return head.left(cut < 0 ? window : cut) + ellipsis + end.mid(startOfLast(end, kept));
}

QString singleLine(const QString& text, qsizetype mostUnits) {
    QStringView visible = QStringView(text).trimmed();
    QString line;
    if (visible.size() > 2 * mostUnits)
        line = visible.first(mostUnits).toString() + ellipsis + visible.last(mostUnits).toString();
    else
        line = visible.toString();
    line.removeIf([](QChar c) { return reordersText(c); });
    std::replace_if(line.begin(), line.end(), breaksLine, QLatin1Char(' '));
    return line.trimmed();
}

} // namespace quorvel
