#include "ui/MenuText.h"

#include <QTextLayout>

#include <algorithm>

namespace quorvel {

namespace {

constexpr qsizetype mostTitleUnits = 400;
constexpr qsizetype surelyNarrowUnits = 12;
constexpr qsizetype mostToolTipUnits = 1500;
constexpr int mostToolTipLines = 25;
constexpr qsizetype mostWrappedUnits = 4000;
constexpr qsizetype mostMeasuredUnits = 200;
constexpr int leastTitleWidth = 180;
constexpr int widthBesideTitle = 64;

const QChar ellipsis(0x2026);

/// Does not cut a character of two units in halves.
qsizetype cutPosition(const QString& text, qsizetype position) {
    return position < text.size() && text[position].isLowSurrogate() ? position - 1 : position;
}

/// Where the first `lines` lines of the text end.
qsizetype endOfLines(const QString& text, int lines) {
    qsizetype end = -1;
    for (int line = 0; line < lines; ++line) {
        end = text.indexOf(QLatin1Char('\n'), end + 1);
        if (end < 0)
            return text.size();
    }
    return end;
}

QString beginning(const QString& text) {
    QString head = text.left(cutPosition(text, std::min(mostToolTipUnits, text.size())));
    head.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    head.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    const qsizetype end = endOfLines(head, mostToolTipLines);
    const bool isWhole = head.size() == end && text.size() <= mostToolTipUnits;
    return isWhole ? head : head.left(end) + ellipsis;
}

QString withLineSeparators(const QString& text) {
    QString lines = text.left(cutPosition(text, std::min(mostWrappedUnits, text.size())));
    lines.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    for (QChar& character : lines) {
        if (character == QLatin1Char('\n') || character == QLatin1Char('\r'))
            character = QChar::LineSeparator;
        else if (character.category() == QChar::Other_Control)
            character = QLatin1Char(' ');
    }
    return lines;
}

/// The last line that is shown, with as much of its paragraph as fits.
QString lastLine(const QString& rest, const QFont& font, int width) {
    const QString paragraph = rest.left(rest.indexOf(QChar::LineSeparator));
    return QFontMetrics(font).elidedText(paragraph + ellipsis, Qt::ElideRight, width);
}

/// A title that was shortened before becomes shorter at the same place.
QString narrowed(const QString& line, const QFontMetrics& metrics, int mostWidth) {
    const qsizetype gap = line.indexOf(ellipsis);
    const QString tail = gap < 0 ? QString() : line.mid(gap + 1);
    const int room = mostWidth - metrics.horizontalAdvance(tail);
    if (gap < 0 || tail.contains(ellipsis) || room < mostWidth / 3)
        return metrics.elidedText(line, Qt::ElideMiddle, mostWidth);
    if (metrics.horizontalAdvance(line) <= mostWidth)
        return line;
    return metrics.elidedText(line.left(gap + 1), Qt::ElideRight, room) + tail;
}

} // namespace

QString titleLine(const QString& title, const QFontMetrics& metrics, int mostWidth) {
    QString line = title.left(cutPosition(title, std::min(mostTitleUnits, title.size())));
    line.remove(QLatin1Char('\t'));
    line.replace(QLatin1Char('\n'), QLatin1Char(' '));
    return line.size() > surelyNarrowUnits ? narrowed(line, metrics, mostWidth) : line;
}

QString menuTitle(const QString& title, const QFontMetrics& metrics, int mostWidth) {
    return titleLine(title, metrics, mostWidth).replace(QLatin1Char('&'), QStringLiteral("&&"));
}

int measuredMenuWidth(const QList<MenuItem>& items, const QFontMetrics& metrics, int mostWidth) {
    int widest = leastTitleWidth;
    for (const MenuItem& item : items) {
        if (widest + widthBesideTitle >= mostWidth)
            break;
        if (item.kind != MenuItemKind::separator && item.kind != MenuItemKind::textBox)
            widest =
                std::max(widest, metrics.horizontalAdvance(item.title.left(mostMeasuredUnits)));
    }
    return widest + widthBesideTitle;
}

QString wrappedText(const QString& text, const QFont& font, int width, int mostLines) {
    const QString source = withLineSeparators(text);
    QTextLayout layout(source, font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    QStringList lines;
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        if (lines.size() + 1 == mostLines && line.textStart() + line.textLength() < source.size()) {
            lines.append(lastLine(source.mid(line.textStart()), font, width));
            break;
        }
        QString shown = source.mid(line.textStart(), line.textLength());
        lines.append(shown.remove(QChar::LineSeparator));
    }
    layout.endLayout();
    return lines.join(QLatin1Char('\n'));
}

QString toolTipMarkup(const QString& text, const QString& detail) {
    QStringList parts;
    if (!text.trimmed().isEmpty())
        parts.append(beginning(text).toHtmlEscaped());
    if (!detail.trimmed().isEmpty())
        parts.append(QStringLiteral("<small>%1</small>").arg(beginning(detail).toHtmlEscaped()));
    if (parts.isEmpty())
        return {};
    return QStringLiteral("<p style='white-space:pre-wrap'>%1</p>")
        .arg(parts.join(QStringLiteral("<br>")));
}

} // namespace quorvel
