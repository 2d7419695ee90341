#include "smart/masking/TableColumns.h"

#include "smart/masking/CharacterBits.h"
#include "smart/masking/LabelledValues.h"

#include <algorithm>

namespace quorvel {

namespace {

constexpr qsizetype longestLine = 2000;
constexpr int mostRows = 2000;

struct Line {
    qsizetype start = 0;
    qsizetype end = 0;
};

bool endsLine(QStringView text, qsizetype at) {
    return at < 0 || at >= text.size() || hasBit(text[at], lineEndBit);
}

Line lineAround(QStringView text, qsizetype at) {
    Line line{at, at};
    while (!endsLine(text, line.start - 1) && at - line.start < longestLine)
        --line.start;
    while (!endsLine(text, line.end) && line.end - at < longestLine)
        ++line.end;
    return line;
}

Line nextLine(QStringView text, Line line) {
    const qsizetype start =
        line.end + (unitAt(text, line.end) == u'\r' && unitAt(text, line.end + 1) == u'\n' ? 2 : 1);
    Line next{start, start};
    while (!endsLine(text, next.end) && next.end - start < longestLine)
        ++next.end;
    return next;
}

bool isDelimiter(QChar unit) {
    return unit == u'\t' || unit == u'|' || unit == u';' || unit == u',';
}

bool isPadding(QChar unit) {
    return unit == u' ' || unit == u'"' || unit == u'*' || unit == u'\'';
}

/// What is left of a cell without blanks and quotes.
SecretRange stripped(QStringView text, qsizetype start, qsizetype end) {
    while (start < end && isPadding(text[start]))
        ++start;
    while (end > start && (isPadding(text[end - 1]) && text[end - 1] != u'*'))
        --end;
    return {start, end - start};
}

/// The sign between the cells, if the label fills one; NUL otherwise.
QChar delimiterOf(QStringView text, const Label& label, Line line) {
    qsizetype before = label.start - 1;
    while (before >= line.start && isPadding(text[before]))
        --before;
    qsizetype after = label.end;
    while (after < line.end && isPadding(text[after]))
        ++after;
    const QChar left = before >= line.start ? text[before] : QChar();
    const QChar right = after < line.end ? text[after] : QChar();
    const bool isCell = (left.isNull() || isDelimiter(left)) &&
                        (right.isNull() || isDelimiter(right)) &&
                        (left.isNull() || right.isNull() || left == right);
    return !isCell ? QChar() : left.isNull() ? right : left;
}

/// The cell of that number, from nought.
SecretRange cellOf(QStringView text, Line line, QChar delimiter, qsizetype number) {
    qsizetype start = line.start;
    for (qsizetype at = line.start; at <= line.end; ++at) {
        if (at < line.end && text[at] != delimiter)
            continue;
        if (number-- == 0)
            return stripped(text, start, at);
        start = at + 1;
    }
    return {line.end, 0};
}

qsizetype cellsOf(QStringView text, Line line, QChar delimiter) {
    return text.mid(line.start, line.end - line.start).count(delimiter) + 1;
}

bool isColumnValue(QStringView text, const Label& label, SecretRange cell) {
    LabelledValue value{Separator::verb, false, false, false, cell.start, cell.end()};
    const QStringView written = text.mid(cell.start, cell.length);
    const bool isPin = label.kind == LabelKind::pin &&
                       std::ranges::all_of(written, [](QChar u) { return hasBit(u, digitBit); });
    return cell.length >= 4 && !written.contains(u' ') &&
           (isPin || isSecretValue(text, label, value));
}

} // namespace

bool mayHeadColumn(QStringView text, const Label& label) {
    const bool isMeant = label.kind == LabelKind::password || label.kind == LabelKind::secret ||
                         label.kind == LabelKind::pin;
    if (!isMeant || label.end >= text.size())
        return false;
    constexpr qsizetype mostPadding = 40;
    qsizetype after = label.end;
    while (after - label.end < mostPadding && isPadding(unitAt(text, after)))
        ++after;
    qsizetype before = label.start - 1;
    while (label.start - before < mostPadding && isPadding(unitAt(text, before)))
        --before;
    const auto bounds = [text](qsizetype at) {
        return at < 0 || isDelimiter(unitAt(text, at)) || hasBit(unitAt(text, at), lineEndBit);
    };
    return bounds(before) && bounds(after);
}

TableReading columnBelow(QStringView text, const Label& label) {
    constexpr qsizetype leastCells = 2;
    constexpr qsizetype mostCells = 40;
    TableReading reading;
    const Line header = lineAround(text, label.start);
    const QChar delimiter = delimiterOf(text, label, header);
    reading.end = header.end;
    const qsizetype cells = cellsOf(text, header, delimiter);
    if (delimiter.isNull() || header.end >= text.size() || cells > mostCells)
        return reading;
    const qsizetype column = text.mid(header.start, label.start - header.start).count(delimiter);
    Line line = nextLine(text, header);
    for (int row = 0; row < mostRows && line.start < text.size(); ++row) {
        if (cells < leastCells || cellsOf(text, line, delimiter) != cells)
            break;
        const SecretRange cell = cellOf(text, line, delimiter, column);
        if (isColumnValue(text, label, cell))
            reading.hidden.append(cell);
        // Another column may be the one with the passwords.
        reading.end = reading.hidden.isEmpty() ? label.end : line.end;
        line = nextLine(text, line);
    }
    return reading;
}

} // namespace quorvel
