#include "ui/MenuText.h"

#include <algorithm>

namespace quorvel {

namespace {

constexpr qsizetype mostTitleUnits = 400;
constexpr qsizetype surelyNarrowUnits = 12;
constexpr qsizetype mostToolTipUnits = 1500;
constexpr int mostToolTipLines = 25;

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

} // namespace

QString menuTitle(const QString& title, const QFontMetrics& metrics, int mostWidth) {
    QString line = title.left(cutPosition(title, std::min(mostTitleUnits, title.size())));
    line.remove(QLatin1Char('\t'));
    line.replace(QLatin1Char('\n'), QLatin1Char(' '));
    if (line.size() > surelyNarrowUnits)
        line = metrics.elidedText(line, Qt::ElideMiddle, mostWidth);
    return line.replace(QLatin1Char('&'), QStringLiteral("&&"));
}

QString toolTipMarkup(const QString& text) {
    if (text.trimmed().isEmpty())
        return {};
    return QStringLiteral("<p style='white-space:pre-wrap'>%1</p>")
        .arg(beginning(text).toHtmlEscaped());
}

} // namespace quorvel
