#include "ui/popover/PanelPlacement.h"

#include "ui/popover/PopoverMetrics.h"

#include <QPolygon>

namespace quorvel {

namespace {

constexpr int overlap = 3; ///< Of a submenu with its panel.

} // namespace

QRect PanelAnchor::open(QSize size, QPoint pointer, const QRect& limits,
                        Qt::LayoutDirection direction) {
    const QSize fitting = size.boundedTo(limits.size());
    const MenuPlace place = placedAtPointer(fitting, pointer, limits, direction);
    const QRect result(place.topLeft, fitting);
    m_bottom.reset();
    m_right.reset();
    if (place.isAbovePointer)
        m_bottom = result.bottom();
    if (result.right() < pointer.x())
        m_right = result.right();
    return result;
}

QRect PanelAnchor::resized(const QRect& now, QSize size, const QRect& limits) const {
    QRect place(now.topLeft(), size.boundedTo(limits.size()));
    if (m_bottom)
        place.moveBottom(*m_bottom);
    if (m_right)
        place.moveRight(*m_right);
    return movedInto(limits, place);
}

SubmenuPlace placedBeside(const QRect& panel, const QRect& row, QSize size, PanelSide wanted,
                          const QRect& limits) {
    const QSize fitting = size.boundedTo(limits.size());
    QRect place(QPoint(panel.right() + 1 - overlap, row.top() - PopoverMetrics::edge - 1), fitting);
    const int toTheLeft = panel.left() + overlap - fitting.width();
    const bool fitsRight = place.right() <= limits.right();
    const bool fitsLeft = toTheLeft >= limits.left();
    const bool isLeft = wanted == PanelSide::left ? fitsLeft || !fitsRight : fitsLeft && !fitsRight;
    if (isLeft)
        place.moveLeft(toTheLeft);
    return {movedInto(limits, place), isLeft ? PanelSide::left : PanelSide::right};
}

/// The triangle between the place and the panel's nearer side, with a little room.
bool isHeadingFor(const QRect& panel, QPoint from, QPoint to) {
    constexpr int room = 24;
    if (from == to)
        return false;
    const bool isToTheRight = panel.center().x() > from.x();
    const int x = isToTheRight ? panel.left() : panel.right();
    const bool comesNearer = isToTheRight ? to.x() > from.x() : to.x() < from.x();
    const QPolygon triangle(
        {from, QPoint(x, panel.top() - room), QPoint(x, panel.bottom() + room)});
    return comesNearer && triangle.containsPoint(to, Qt::OddEvenFill);
}

} // namespace quorvel
