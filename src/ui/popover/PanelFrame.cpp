#include "ui/popover/PanelFrame.h"

#include "ui/popover/PopoverMetrics.h"

#include <QGuiApplication>

#include <xcb/xcb.h>

#include <array>
#include <cstdlib>
#include <memory>

namespace quorvel {

namespace {

constexpr int shadowDrop = 6;                                    ///< It falls downwards.
constexpr int shadowReach = PopoverMetrics::shadow - shadowDrop; ///< To each side.
constexpr int corner = shadowReach + PopoverMetrics::rounding + 4;

template <typename Reply>
using Owned = std::unique_ptr<Reply, decltype(&std::free)>;

/// The program that blends windows owns a selection that is named after the screen.
bool hasCompositor(xcb_connection_t* connection) {
    constexpr std::string_view name = "_NET_WM_CM_S0";
    const Owned<xcb_intern_atom_reply_t> atom(
        xcb_intern_atom_reply(connection,
                              xcb_intern_atom(connection, 1, uint16_t(name.size()), name.data()),
                              nullptr),
        &std::free);
    if (!atom || atom->atom == XCB_ATOM_NONE)
        return false;
    const Owned<xcb_get_selection_owner_reply_t> owner(
        xcb_get_selection_owner_reply(connection, xcb_get_selection_owner(connection, atom->atom),
                                      nullptr),
        &std::free);
    return owner && owner->owner != XCB_WINDOW_NONE;
}

/// Many faint layers, each a little smaller, make a soft edge.
QPixmap shadowOfSmallestPanel(qreal scale, bool isDark) {
    constexpr int side = 2 * corner + 1;
    constexpr int layers = shadowReach;
    QPixmap pixmap(QSize(side, side) * scale);
    pixmap.setDevicePixelRatio(scale);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    for (int layer = 0; layer < layers; ++layer) {
        const qreal depth = qreal(layer) / layers;
        painter.setBrush(QColor(0, 0, 0, qRound(1 + (isDark ? 14 : 6) * depth * depth)));
        const qreal rounding = PopoverMetrics::rounding + layers - layer;
        painter.drawRoundedRect(QRectF(layer, layer, side - 2 * layer, side - 2 * layer), rounding,
                                rounding);
    }
    return pixmap;
}

} // namespace

bool isComposited() {
    if (const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>())
        return hasCompositor(x11->connection());
    return true;
}

QMargins PanelFrame::margins() const {
    constexpr int shadow = PopoverMetrics::shadow;
    if (m_shape == Shape::square)
        return {};
    return {shadow, shadow, shadow, shadow};
}

void PanelFrame::paint(QPainter& painter, const QRect& panel, const QRect& part,
                       const PopoverColors& colors) {
    painter.setBrush(colors.ground);
    if (m_shape == Shape::square) {
        painter.setRenderHint(QPainter::Antialiasing, false);
        painter.setPen(QPen(colors.border, 0));
        painter.drawRect(panel.adjusted(0, 0, -1, -1));
        return;
    }
    painter.setRenderHint(QPainter::Antialiasing);
    if (!panel.contains(part) || part.contains(panel))
        paintShadow(painter, panel, colors);
    painter.setPen(QPen(colors.border, 1));
    const qreal rounding = PopoverMetrics::rounding;
    painter.drawRoundedRect(QRectF(panel).adjusted(0.5, 0.5, -0.5, -0.5), rounding, rounding);
}

/// The corners as they are, the sides drawn out between them.
void PanelFrame::paintShadow(QPainter& painter, const QRect& panel, const PopoverColors& colors) {
    const qreal scale = painter.device()->devicePixelRatioF();
    if (m_shadowScale != scale)
        m_shadow = shadowOfSmallestPanel(scale, colors.isDark);
    m_shadowScale = scale;
    const QRect whole = panel.adjusted(-shadowReach, -shadowReach, shadowReach, shadowReach)
                            .translated(0, shadowDrop);
    const std::array from{0, corner, corner + 1, 2 * corner + 1};
    const std::array x{0, corner, whole.width() - corner, whole.width()};
    const std::array y{0, corner, whole.height() - corner, whole.height()};
    for (std::size_t column = 0; column < 3; ++column) {
        for (std::size_t line = 0; line < 3; ++line) {
            const QRect target(whole.topLeft() + QPoint(x[column], y[line]),
                               QSize(x[column + 1] - x[column], y[line + 1] - y[line]));
            const QRectF source(
                QPointF(from[column], from[line]) * scale,
                QSizeF(from[column + 1] - from[column], from[line + 1] - from[line]) * scale);
            painter.drawPixmap(QRectF(target), m_shadow, source);
        }
    }
}

} // namespace quorvel
