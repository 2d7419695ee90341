#pragma once

#include "ui/MenuPlacement.h"

#include <optional>

namespace quorvel {

/// Keeps the edges of an open panel that are next to where it was opened.
class PanelAnchor {
public:
    /// Where a panel of this size opens.
    QRect open(QSize size, QPoint pointer, const QRect& limits, Qt::LayoutDirection direction);

    /// Where it is with another size.
    QRect resized(const QRect& now, QSize size, const QRect& limits) const;

private:
    std::optional<int> m_bottom;
    std::optional<int> m_right;
};

enum class PanelSide { left, right };

struct SubmenuPlace {
    QRect place;
    PanelSide side;
};

/// Beside the panel that it belongs to, its first row at the height of `row`: on the side that is
/// asked for, on the other one when there is no room, over the panel when there is none at all.
SubmenuPlace placedBeside(const QRect& panel, const QRect& row, QSize size, PanelSide wanted,
                          const QRect& limits);

/// Whether a pointer on its way from one place to another is heading for the panel.
bool isHeadingFor(const QRect& panel, QPoint from, QPoint to);

} // namespace quorvel
