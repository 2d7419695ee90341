#include "ui/popover/RowPainter.h"

#include "menu/KeyNames.h"
#include "ui/ItemIcons.h"
#include "ui/MenuText.h"

namespace quorvel {

namespace {

constexpr int chevronSize = 14;
constexpr int pinSize = 13;

QRect centred(const QRect& place, int size) {
    QRect square(0, 0, size, size);
    square.moveCenter(place.center());
    return square;
}

} // namespace

RowPainter::RowPainter(QPainter& painter, const PopoverContext& context,
                       const PopoverMetrics& metrics, const PopoverColors& colors,
                       Qt::LayoutDirection direction)
    : m_painter(painter)
    , m_context(context)
    , m_metrics(metrics)
    , m_colors(colors)
    , m_direction(direction) {}

void RowPainter::paint(const PopoverRow& row, const QRect& place, RowState state) {
    const QRect inside = place.adjusted(PopoverMetrics::edge, 0, -PopoverMetrics::edge, 0);
    switch (row.item.kind) {
    case MenuItemKind::separator:
        return paintSeparator(inside);
    case MenuItemKind::header:
        return paintHeader(row.item, inside);
    case MenuItemKind::hint:
        return paintHint(row.item, inside);
    case MenuItemKind::textBox:
        return paintTextBox(row.item, inside);
    case MenuItemKind::ordinary:
        return paintItem(row.item, inside, state);
    case MenuItemKind::searchField:
        return;
    }
}

void RowPainter::paintSeparator(const QRect& place) {
    const int y = place.center().y();
    m_painter.fillRect(place.left() + PopoverMetrics::rowPadding, y,
                       place.width() - 2 * PopoverMetrics::rowPadding, 1, m_colors.line);
}

void RowPainter::paintHeader(const MenuItem& item, const QRect& place) {
    const int padding = PopoverMetrics::rowPadding;
    paintText(item.title, m_metrics.caption, m_colors.quiet,
              place.adjusted(padding, 2, -padding, 0), Qt::ElideRight);
}

void RowPainter::paintHint(const MenuItem& item, const QRect& place) {
    QRect rest = place.adjusted(PopoverMetrics::rowPadding, 0, -PopoverMetrics::rowPadding, 0);
    paintSymbol(item.symbol, centred(takeBeginning(rest, pinSize), pinSize), m_colors.quiet);
    takeBeginning(rest, PopoverMetrics::rowPadding);
    paintText(item.title, m_metrics.detail, m_colors.quiet, rest, Qt::ElideRight);
}

void RowPainter::paintTextBox(const MenuItem& item, const QRect& place) {
    const int padding = PopoverMetrics::rowPadding;
    m_painter.setPen(Qt::NoPen);
    m_painter.setBrush(m_colors.field);
    const QRect box = place.adjusted(padding, padding, -padding, -padding);
    m_painter.drawRoundedRect(box, 6, 6);
    const QRect inside = box.adjusted(padding, padding, -padding, -padding);
    m_painter.setFont(m_metrics.title);
    m_painter.setPen(m_colors.text);
    const QString lines =
        wrappedText(item.title, m_metrics.title, inside.width(), PopoverMetrics::mostTextBoxLines);
    m_painter.drawText(inside, Qt::AlignTop | Qt::AlignLeft | Qt::TextDontClip, lines);
}

void RowPainter::paintItem(const MenuItem& item, const QRect& place, RowState state) {
    if (!item.enabled && item.action == MenuAction::none && !item.hasSubmenu() &&
        item.keyEquivalent.key.isEmpty() && item.representedObject.isEmpty() &&
        item.imagePNGData.isEmpty())
        return paintPlaceholder(item, place);
    if (state != RowState::plain) {
        m_painter.setPen(Qt::NoPen);
        m_painter.setBrush(state == RowState::highlighted ? m_colors.highlight
                                                          : m_colors.openSubmenu);
        m_painter.drawRoundedRect(place, 6, 6);
    }
    QRect rest = place.adjusted(PopoverMetrics::rowPadding, 0, -PopoverMetrics::rowPadding, 0);
    paintPicture(item, takeBeginning(rest, PopoverMetrics::iconColumn), state);
    takeBeginning(rest, PopoverMetrics::gap);
    takeEnd(rest, paintEnd(item, rest, state));
    paintTitle(item, rest, state);
}

/// What only says that there is nothing, or names what comes later.
void RowPainter::paintPlaceholder(const MenuItem& item, const QRect& place) {
    QRect rest = place.adjusted(PopoverMetrics::rowPadding, 0, -PopoverMetrics::rowPadding, 0);
    const QRect icon = takeBeginning(rest, PopoverMetrics::iconColumn);
    paintSymbol(item.symbol, centred(icon, PopoverMetrics::iconSize), m_colors.faint);
    takeBeginning(rest, PopoverMetrics::gap);
    paintText(item.title, m_metrics.title, m_colors.faint, rest);
}

void RowPainter::paintPicture(const MenuItem& item, const QRect& place, RowState state) {
    const QColor swatch = QColor::fromString(item.colorName);
    if (swatch.isValid())
        return swatchIcon(swatch).paint(&m_painter, centred(place, PopoverMetrics::iconSize));
    if (!item.imagePNGData.isEmpty()) {
        const QIcon thumbnail = m_context.thumbnails.icon(item.imagePNGData);
        if (!thumbnail.isNull()) {
            const QSize size = thumbnail.actualSize(place.size());
            QRect picture(QPoint(), size);
            picture.moveCenter(place.center());
            return thumbnail.paint(&m_painter, picture);
        }
    }
    const QString symbol = item.imagePNGData.isEmpty() ? item.symbol : QStringLiteral("photo");
    paintSymbol(symbol, centred(place, PopoverMetrics::iconSize), quietColor(state));
}

void RowPainter::paintTitle(const MenuItem& item, const QRect& place, RowState state) {
    const QColor color = textColor(item, state);
    if (item.detail.isEmpty())
        return paintText(item.title, m_metrics.title, color, place);
    const int height = m_metrics.titleHeight + m_metrics.detailHeight;
    QRect line(place.left(), place.top() + (place.height() - height) / 2, place.width(),
               m_metrics.titleHeight);
    paintText(item.title, m_metrics.title, color, line);
    line.setTop(line.bottom() + 1);
    line.setHeight(m_metrics.detailHeight);
    paintText(item.detail, m_metrics.detail, quietColor(state), line, Qt::ElideRight);
}

/// Key equivalent, pin and chevron; returns the width that they take.
int RowPainter::paintEnd(const MenuItem& item, const QRect& place, RowState state) {
    QRect rest = place;
    const QColor color = quietColor(state);
    if (item.hasSubmenu())
        paintSymbol(isMirrored() ? QStringLiteral("chevron.left") : QStringLiteral("chevron.right"),
                    centred(takeEnd(rest, chevronSize), chevronSize), color);
    const QString keys = keyEquivalentText(item.keyEquivalent, m_context.strings);
    if (!keys.isEmpty()) {
        const QFontMetrics metrics(m_metrics.detail);
        paintText(keys, m_metrics.detail, color, takeEnd(rest, metrics.horizontalAdvance(keys) + 1),
                  Qt::ElideNone);
    }
    if (item.isPinned) {
        takeEnd(rest, rest.width() < place.width() ? PopoverMetrics::gap : 0);
        paintSymbol(QStringLiteral("pin"), centred(takeEnd(rest, pinSize), pinSize), color);
    }
    const int used = place.width() - rest.width();
    return used > 0 ? used + PopoverMetrics::gap : 0;
}

void RowPainter::paintSymbol(const QString& symbol, const QRect& place, const QColor& color) {
    m_context.icons.symbol(symbol, color).paint(&m_painter, place);
}

void RowPainter::paintText(const QString& text, const QFont& font, const QColor& color,
                           const QRect& place, Qt::TextElideMode elide) {
    constexpr qsizetype mostUnits = 400; // None is ever wider than a row.
    const QString shown = QFontMetrics(font).elidedText(text.left(mostUnits), elide, place.width());
    const Qt::Alignment side = isMirrored() ? Qt::AlignRight : Qt::AlignLeft;
    m_painter.setFont(font);
    m_painter.setPen(color);
    m_painter.drawText(place, int(Qt::TextSingleLine | Qt::AlignVCenter | Qt::AlignAbsolute | side),
                       shown);
}

QColor RowPainter::textColor(const MenuItem& item, RowState state) const {
    if (state == RowState::highlighted)
        return m_colors.highlightedText;
    return item.enabled || item.tag != 0 ? m_colors.text : m_colors.faint;
}

QColor RowPainter::quietColor(RowState state) const {
    return state == RowState::highlighted ? m_colors.highlightedQuiet : m_colors.quiet;
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
