#include "ui/MenuStyle.h"

#include <QPainter>
#include <QStyleOptionMenuItem>

#include <algorithm>

namespace quorvel {

namespace {

constexpr int captionPadding = 7;
constexpr int textPadding = 6;
constexpr int leastRowHeight = 25;

QIcon::Mode iconMode(const QStyleOptionMenuItem& row) {
    if (!row.state.testFlag(QStyle::State_Enabled))
        return QIcon::Disabled;
    const bool selected = row.state.testFlag(QStyle::State_Selected);
    return selected && row.icon.isMask() ? QIcon::Selected : QIcon::Normal;
}

QRect iconPlace(const QStyleOptionMenuItem& row) {
    const int width = row.icon.isMask() ? MenuStyle::iconSize : MenuStyle::iconColumn - 4;
    QRect place(0, 0, width, MenuStyle::iconSize);
    place.moveCenter(
        QPoint(row.rect.left() + 4 + MenuStyle::iconColumn / 2, row.rect.center().y()));
    return QStyle::visualRect(row.direction, row.rect, place);
}

} // namespace

void MenuStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const {
    const auto* row = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (element != CE_MenuItem || !row)
        QProxyStyle::drawControl(element, option, painter, widget);
    else if (row->state & captionState)
        drawCaption(*row, painter);
    else if (row->state & textState)
        drawText(*row, painter);
    else
        drawRow(*row, painter, widget);
}

void MenuStyle::drawCaption(const QStyleOptionMenuItem& row, QPainter* painter) const {
    painter->save();
    painter->setFont(row.font);
    QColor colour = row.palette.color(QPalette::Active, QPalette::Text);
    colour.setAlphaF(0.6F);
    painter->setPen(colour);
    const QRect place = row.rect.adjusted(sideMargin, captionPadding / 2, -sideMargin, 0);
    const int flags = Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextShowMnemonic |
                      int(visualAlignment(row.direction, Qt::AlignLeft));
    painter->drawText(place, flags, row.text);
    painter->restore();
}

void MenuStyle::drawText(const QStyleOptionMenuItem& row, QPainter* painter) const {
    painter->save();
    painter->setFont(row.font);
    painter->setPen(row.palette.color(QPalette::Active, QPalette::Text));
    const QRect place = row.rect.adjusted(sideMargin, textPadding, -sideMargin, -textPadding);
    const int flags = Qt::AlignTop | int(visualAlignment(row.direction, Qt::AlignLeft));
    painter->drawText(place, flags, row.text);
    painter->restore();
}

void MenuStyle::drawRow(const QStyleOptionMenuItem& row, QPainter* painter,
                        const QWidget* widget) const {
    QStyleOptionMenuItem plain(row);
    plain.icon = QIcon();
    QProxyStyle::drawControl(CE_MenuItem, &plain, painter, widget);
    if (row.icon.isNull())
        return;
    row.icon.paint(painter, iconPlace(row), Qt::AlignCenter, iconMode(row));
}

QSize MenuStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                  const QSize& contents, const QWidget* widget) const {
    QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
    const auto* row = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (type != CT_MenuItem || !row || row->menuItemType == QStyleOptionMenuItem::Separator)
        return size;
    if (row->state & captionState)
        size.setHeight(row->fontMetrics.height() + 2 * captionPadding);
    else if (row->state & textState)
        size = QFontMetrics(row->font).size(0, row->text) +
               QSize(2 * sideMargin - row->reservedShortcutWidth, 2 * textPadding);
    else
        size.setHeight(std::max(size.height(), leastRowHeight));
    return size;
}

int MenuStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                           const QWidget* widget) const {
    return metric == PM_SmallIconSize ? iconSize : QProxyStyle::pixelMetric(metric, option, widget);
}

int MenuStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* result) const {
    switch (hint) {
    case SH_MenuBar_AltKeyNavigation: // Otherwise pressing Alt closes the menu.
    case SH_EtchDisabledText:
    case SH_Menu_AllowActiveAndDisabled:
    case SH_Menu_FlashTriggeredItem: // These two would run an event loop before the choice.
    case SH_Menu_FadeOutOnHide:
        return 0;
    case SH_Menu_Scrollable:
        return 1;
    default:
        return QProxyStyle::styleHint(hint, option, widget, result);
    }
}

} // namespace quorvel
