#include "ui/MenuPlacement.h"

#include <algorithm>

namespace quorvel {

namespace {

/// Prefers the end that the direction asks for, then the other one.
int horizontalPlace(int width, int pointer, const QRect& limits, Qt::LayoutDirection direction) {
    const bool fitsRight = pointer + width - 1 <= limits.right();
    const bool fitsLeft = pointer - width >= limits.left();
    const bool wantsLeft = direction == Qt::RightToLeft;
    return fitsLeft && (wantsLeft || !fitsRight) ? pointer - width : pointer;
}

} // namespace

MenuPlace placedAtPointer(QSize size, QPoint pointer, const QRect& limits,
                          Qt::LayoutDirection direction) {
    const bool fitsBelow = pointer.y() + size.height() - 1 <= limits.bottom();
    const bool isAbove = !fitsBelow && pointer.y() - size.height() >= limits.top();
    const QPoint wanted(horizontalPlace(size.width(), pointer.x(), limits, direction),
                        isAbove ? pointer.y() - size.height() : pointer.y());
    return {movedInto(limits, QRect(wanted, size)).topLeft(), isAbove};
}

QRect movedInto(const QRect& limits, QRect place) {
    place.setHeight(std::min(place.height(), limits.height()));
    const int mostLeft = limits.right() - place.width() + 1;
    const int mostTop = limits.bottom() - place.height() + 1;
    place.moveLeft(std::clamp(place.left(), limits.left(), std::max(limits.left(), mostLeft)));
    place.moveTop(std::clamp(place.top(), limits.top(), std::max(limits.top(), mostTop)));
    return place;
}

} // namespace quorvel
