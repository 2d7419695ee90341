#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>
#include <Qt>

namespace quorvel {

struct MenuPlace {
    QPoint topLeft;
    bool isAbovePointer = false; ///< The menu then keeps its lower edge when its height changes.
};

/// Where a menu opens: beside the pointer, below it if it fits there, else above it, else moved as
/// little as is needed to be wholly within the limits.
MenuPlace placedAtPointer(QSize size, QPoint pointer, const QRect& limits,
                          Qt::LayoutDirection direction);

/// The place moved, and cut if need be, to lie within the limits.
QRect movedInto(const QRect& limits, QRect place);

} // namespace quorvel
