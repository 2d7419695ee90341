#pragma once

#include "ui/popover/PopoverColors.h"

#include <QMargins>
#include <QPainter>
#include <QPixmap>

namespace quorvel {

/// Whether the display blends windows, so that they may be translucent.
bool isComposited();

/// What is around a panel: rounded with a soft shadow where windows are blended, else square.
class PanelFrame {
public:
    enum class Shape { square, blended };

    explicit PanelFrame(Shape shape)
        : m_shape(shape) {}

    Shape shape() const { return m_shape; }

    /// The room that the shadow takes around a panel.
    QMargins margins() const;

    /// `panel` without its shadow; `part` is what needs to be painted.
    void paint(QPainter& painter, const QRect& panel, const QRect& part,
               const PopoverColors& colors);

private:
    void paintShadow(QPainter& painter, const QRect& panel, const PopoverColors& colors);

    const Shape m_shape;
    QPixmap m_shadow; ///< Of the smallest panel.
    qreal m_shadowScale = 0;
};

} // namespace quorvel
