#include "ui/popover/RowPainter.h"

#include "menu/KeyNames.h"
#include "ui/ItemIcons.h"
#include "ui/MenuText.h"

#include <QTextOption>

namespace quorvel {

namespace {

constexpr int swatchSize = 22;
constexpr QSize tile{32, 28};
constexpr int tileRounding = 6;
constexpr qsizetype mostUnits = 400; // None is ever wider than a row.

QRect centred(const QRect& place, const QSize& size) {
    QRect result(QPoint(), size);
    result.moveCenter(place.center());
    return result;
}

QRect padded(const QRect& place) {
    return place.adjusted(PopoverMetrics::padding, 0, -PopoverMetrics::padding, 0);
}

} // namespace

RowPainter::RowPainter(QPainter& painter, const Surroundings& surroundings)
    : m_painter(painter)
    , m_around(surroundings)
    , m_metrics(surroundings.metrics)
    , m_colors(surroundings.colors) {}

void RowPainter::paint(const MenuItem& item, const QRect& place, RowState state) {
    const QRect inside = place.adjusted(PopoverMetrics::edge, 0, -PopoverMetrics::edge, 0);
    switch (item.kind) {
    case MenuItemKind::separator:
        return paintSeparator(inside);
    case MenuItemKind::header:
        return paintHeader(item, inside);
    case MenuItemKind::hint:
        return paintHint(item, inside, state);
    case MenuItemKind::textBox:
        return paintTextBox(item, inside);
    case MenuItemKind::ordinary:
        return paintItem(item, inside, state);
    case MenuItemKind::searchField:
        return;
    }
}

void RowPainter::paintEmptyState(const MenuItem& item, const QRect& place) {
    constexpr int symbolSize = 32;
    const QFontMetrics metrics(m_metrics.title);
    const bool hasSymbol = !m_around.context.icons.symbol(item.symbol).isNull();
    const int height = m_metrics.titleHeight + (hasSymbol ? symbolSize + PopoverMetrics::gap : 0);
    QRect group = centred(place, {padded(place).width(), height});
    if (hasSymbol) {
        const QRect top(group.left(), group.top(), group.width(), symbolSize);
        paintSymbol(item.symbol, symbolSize, top, m_colors.faint);
        group.setTop(top.bottom() + 1 + PopoverMetrics::gap);
    }
    const QString line = titleLine(item.title, metrics, group.width());
    m_painter.setFont(m_metrics.title);
    m_painter.setPen(m_colors.quiet);
    m_painter.drawText(group, int(Qt::AlignCenter | Qt::TextSingleLine), line);
}

void RowPainter::paintSeparator(const QRect& place) {
    const QRect line = padded(place);
    m_painter.fillRect(line.left(), place.center().y(), line.width(), 1, m_colors.line);
}

/// Nearer to the rows that it names than to those before.
void RowPainter::paintHeader(const MenuItem& item, const QRect& place) {
    QRect line = padded(place);
    line.setTop(line.bottom() - m_metrics.captionHeight - 3);
    paintText(item.title, m_metrics.caption, m_colors.quiet, line, Cut::end);
}

void RowPainter::paintHint(const MenuItem& item, const QRect& place, RowState state) {
    paintGround(place, state);
    const QColor color = state == RowState::plain ? m_colors.quiet : textColor(item, state);
    QRect rest = padded(place);
    if (!item.symbol.isEmpty()) {
        constexpr int size = PopoverMetrics::markSize + 2;
        const int column = std::max(m_around.iconColumn, size);
        paintSymbol(item.symbol, size, takeBeginning(rest, column), color);
        takeBeginning(rest, PopoverMetrics::gap);
    }
    if (item.action != MenuAction::none)
        paintSymbol(QStringLiteral("xmark"), PopoverMetrics::markSize,
                    takeEnd(rest, PopoverMetrics::markSize), m_colors.faint);
    paintText(item.title, m_metrics.detail, color, rest, Cut::end);
}

void RowPainter::paintTextBox(const MenuItem& item, const QRect& place) {
    constexpr int padding = PopoverMetrics::padding;
    const QRect box = place.adjusted(0, padding / 2, 0, -padding / 2);
    m_painter.setPen(Qt::NoPen);
    m_painter.setBrush(m_colors.field);
    m_painter.drawRoundedRect(box, PopoverMetrics::rowRounding, PopoverMetrics::rowRounding);
    const QRect inside = box.adjusted(padding, padding + padding / 2, -padding, 0);
    const QString lines =
        wrappedText(item.title, m_metrics.title, inside.width(), PopoverMetrics::mostTextLines);
    QTextOption option(isMirrored() ? Qt::AlignRight | Qt::AlignAbsolute
                                    : Qt::AlignLeft | Qt::AlignAbsolute);
    option.setTextDirection(lines.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    option.setWrapMode(QTextOption::NoWrap);
    m_painter.setFont(m_metrics.title);
    m_painter.setPen(m_colors.text);
    m_painter.drawText(inside, lines, option);
}

void RowPainter::paintItem(const MenuItem& item, const QRect& place, RowState state) {
    paintGround(place, state);
    QRect rest = padded(place);
    if (m_around.iconColumn > 0) {
        paintIcon(item, takeBeginning(rest, m_around.iconColumn), state);
        takeBeginning(rest, PopoverMetrics::gap);
    }
    takeEnd(rest, paintEnd(item, rest, state));
    paintTitle(item, rest, state);
}

void RowPainter::paintGround(const QRect& place, RowState state) {
    if (state == RowState::plain)
        return;
    m_painter.setPen(Qt::NoPen);
    m_painter.setBrush(state == RowState::highlighted ? m_colors.highlight : m_colors.trail);
    m_painter.drawRoundedRect(place, PopoverMetrics::rowRounding, PopoverMetrics::rowRounding);
}

/// A row of two lines is tall enough for a symbol on a tile of its own.
void RowPainter::paintIcon(const MenuItem& item, const QRect& place, RowState state) {
    const QColor swatch = QColor::fromString(item.colorName);
    if (swatch.isValid())
        return swatchIcon(swatch).paint(&m_painter, centred(place, {swatchSize, swatchSize}));
    if (paintThumbnail(item, place))
        return;
    const QString symbol = item.imagePNGData.isEmpty() ? item.symbol : QStringLiteral("photo");
    if (!item.detail.isEmpty() && !symbol.isEmpty() && place.width() >= tile.width()) {
        m_painter.setPen(Qt::NoPen);
        m_painter.setBrush(state == RowState::highlighted ? m_colors.highlightedField
                                                          : m_colors.field);
        m_painter.drawRoundedRect(centred(place, tile), tileRounding, tileRounding);
    }
    const QColor color =
        state == RowState::highlighted ? m_colors.highlightedText : quietColor(item, state);
    paintSymbol(symbol, PopoverMetrics::iconSize, place, color);
}

bool RowPainter::paintThumbnail(const MenuItem& item, const QRect& place) {
    if (item.imagePNGData.isEmpty())
        return false;
    const QIcon thumbnail = m_around.context.thumbnails.icon(item.imagePNGData);
    if (thumbnail.isNull())
        return false;
    const qreal scale = m_painter.device()->devicePixelRatioF();
    paintPixmap(thumbnail.pixmap(PopoverMetrics::picture, scale), place);
    return true;
}

/// The key equivalent, the pin and the chevron; tells the width that they take.
int RowPainter::paintEnd(const MenuItem& item, const QRect& place, RowState state) {
    constexpr int mark = PopoverMetrics::markSize;
    QRect rest = place;
    const QColor color = quietColor(item, state);
    if (item.hasSubmenu())
        paintSymbol(isMirrored() ? QStringLiteral("chevron.left") : QStringLiteral("chevron.right"),
                    mark, takeEnd(rest, mark), color);
    const QString keys = keyEquivalentText(item.keyEquivalent, m_around.context.strings);
    if (!keys.isEmpty()) {
        takeEnd(rest, rest.width() < place.width() ? PopoverMetrics::gap / 2 : 0);
        const int width = QFontMetrics(m_metrics.detail).horizontalAdvance(keys) + 1;
        paintText(keys, m_metrics.detail, color, takeEnd(rest, width), Cut::never);
    }
    if (item.isPinned) {
        takeEnd(rest, rest.width() < place.width() ? PopoverMetrics::gap : 0);
        paintSymbol(QStringLiteral("pin.fill"), mark, takeEnd(rest, mark), color);
    }
    const int used = place.width() - rest.width();
    return used > 0 ? used + PopoverMetrics::gap : 0;
}

void RowPainter::paintTitle(const MenuItem& item, const QRect& place, RowState state) {
    const QColor color = textColor(item, state);
    if (item.detail.isEmpty())
        return paintText(item.title, m_metrics.title, color, place, Cut::middle);
    const int height = m_metrics.titleHeight + m_metrics.detailHeight + 1;
    QRect line(place.left(), place.top() + (place.height() - height) / 2, place.width(),
               m_metrics.titleHeight);
    paintText(item.title, m_metrics.title, color, line, Cut::middle);
    line = QRect(place.left(), line.bottom() + 2, place.width(), m_metrics.detailHeight);
    paintText(item.detail, m_metrics.detail, quietColor(item, state), line, Cut::end);
}

void RowPainter::paintSymbol(const QString& symbol, int size, const QRect& place,
                             const QColor& color) {
    const QIcon icon = m_around.context.icons.symbol(symbol, color);
    if (!icon.isNull())
        paintPixmap(icon.pixmap(QSize(size, size), m_painter.device()->devicePixelRatioF()), place);
}

/// In the middle of the place, each of its pixels on one of the screen.
void RowPainter::paintPixmap(const QPixmap& pixmap, const QRect& place) {
    QPixmap sharp = pixmap;
    const qreal scale = m_painter.device()->devicePixelRatioF();
    sharp.setDevicePixelRatio(scale);
    const QSizeF size = sharp.deviceIndependentSize();
    const QPointF corner = QRectF(place).center() - QPointF(size.width(), size.height()) / 2;
    const QPointF origin = m_painter.deviceTransform().map(QPointF()) / scale;
    const auto onPixel = [scale](qreal at, qreal from) {
        return qRound((at + from) * scale) / scale - from;
    };
    m_painter.drawPixmap(QPointF(onPixel(corner.x(), origin.x()), onPixel(corner.y(), origin.y())),
                         sharp);
}

/// A text runs in its own direction, and stands at the side that the layout asks for.
void RowPainter::paintText(const QString& text, const QFont& font, const QColor& color,
                           const QRect& place, Cut cut) {
    if (place.width() <= 0)
        return;
    const QFontMetrics metrics(font);
    QString shown = text;
    if (cut == Cut::middle)
        shown = titleLine(text, metrics, place.width());
    else if (cut == Cut::end)
        shown = metrics.elidedText(text.left(mostUnits), Qt::ElideRight, place.width());
    QTextOption option(Qt::AlignAbsolute | Qt::AlignVCenter |
                       (isMirrored() ? Qt::AlignRight : Qt::AlignLeft));
    option.setTextDirection(shown.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    option.setWrapMode(QTextOption::NoWrap);
    m_painter.save(); // Marks upon marks stay within their row.
    m_painter.setClipRect(place.adjusted(-1, -1, 1, 1), Qt::IntersectClip);
    m_painter.setFont(font);
    m_painter.setPen(color);
    m_painter.drawText(place, shown, option);
    m_painter.restore();
}

QColor RowPainter::textColor(const MenuItem& item, RowState state) const {
    if (state == RowState::highlighted)
        return m_colors.highlightedText;
    return item.enabled ? m_colors.text : m_colors.faint;
}

QColor RowPainter::quietColor(const MenuItem& item, RowState state) const {
    if (state == RowState::highlighted)
        return m_colors.highlightedQuiet;
    return item.enabled ? m_colors.quiet : m_colors.faint;
}

QRect RowPainter::takeBeginning(QRect& place, int width) const {
    QRect taken = place;
    if (isMirrored()) {
        taken.setLeft(place.right() - width + 1);
        place.setRight(taken.left() - 1);
    } else {
        taken.setWidth(width);
        place.setLeft(taken.right() + 1);
    }
    return taken;
}

QRect RowPainter::takeEnd(QRect& place, int width) const {
    QRect taken = place;
    if (isMirrored()) {
        taken.setWidth(width);
        place.setLeft(taken.right() + 1);
    } else {
        taken.setLeft(place.right() - width + 1);
        place.setRight(taken.left() - 1);
    }
    return taken;
}

} // namespace quorvel
