#include "ui/popover/PopoverStack.h"

#include <QMouseEvent>
#include <QWheelEvent>

/// How the pointer drives the popover: mouse, wheel and finger.
namespace quorvel {

namespace {

constexpr int pointsPerNotch = 90;
constexpr int unitsPerNotch = 120;
constexpr int touchSlop = 8;

bool isTouch(const QMouseEvent& event) {
    return event.pointingDevice() &&
           event.pointingDevice()->type() == QInputDevice::DeviceType::TouchScreen;
}

} // namespace

void PopoverStack::pointerEvent(QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseMove:
        return pointerMoved(static_cast<const QMouseEvent&>(*event));
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return pointerPressed(static_cast<const QMouseEvent&>(*event));
    case QEvent::MouseButtonRelease:
        return pointerReleased(static_cast<const QMouseEvent&>(*event));
    case QEvent::Wheel:
        return wheelTurned(static_cast<const QWheelEvent&>(*event));
    default:
        return;
    }
}

/// The topmost panel first: a submenu may lie over the one below it.
std::optional<std::size_t> PopoverStack::levelAt(QPoint global) const {
    for (std::size_t level = m_levels.size(); level-- > 0;)
        if (m_levels[level]->panel->geometry().contains(global))
            return level;
    return std::nullopt;
}

/// A pointer that rests where the popover opened does not take the highlight from the keys.
void PopoverStack::pointerMoved(const QMouseEvent& event) {
    const QPoint global = event.globalPosition().toPoint();
    if (std::exchange(m_lastPointer, global) == global)
        return;
    const auto level = levelAt(global);
    if (m_isDraggingBar) {
        list(top()).dragScrollBar(panel(top()).listPlace(global));
        return;
    }
    if (m_touch && level) {
        const int moved = m_touch->y() - global.y();
        if (std::abs(moved) < touchSlop && m_pressed)
            return;
        m_pressed.reset();
        m_touch = global;
        return list(*level).scrollBy(moved);
    }
    if (level)
        hover(*level, list(*level).rowAt(panel(*level).listPlace(global)));
}

void PopoverStack::hover(std::size_t level, int row) {
    PopoverList& shown = list(level);
    if (row == PopoverRows::none || !shown.rows().at(row).isSelectable())
        return;
    if (shown.highlighted() != row)
        m_hoverTimer.start(); // A submenu on the pointer's way opens or closes only when it stays.
    shown.highlight(row, PopoverList::Reveal::no);
}

void PopoverStack::followHover() {
    const auto level = levelAt(m_lastPointer);
    if (!level)
        return;
    const int row = list(*level).highlighted();
    if (row == PopoverRows::none)
        return;
    if (list(*level).rows().at(row).item.hasSubmenu())
        openSubmenu(*level, row);
    else
        closeSubmenusAbove(*level);
}

void PopoverStack::pointerPressed(const QMouseEvent& event) {
    const QPoint global = event.globalPosition().toPoint();
    const auto level = levelAt(global);
    if (!level)
        return emit pressedOutside();
    const QPoint place = panel(*level).listPlace(global);
    m_isDraggingBar = *level == top() && list(*level).pressScrollBar(place);
    if (m_isDraggingBar)
        return;
    m_touch = isTouch(event) ? std::optional(global) : std::nullopt;
    m_pressed = std::pair(*level, list(*level).rowAt(place));
    hover(*level, m_pressed->second);
}

/// Also at the end of a drag that began on the tray icon or on another row.
void PopoverStack::pointerReleased(const QMouseEvent& event) {
    const bool wasScrolling = m_isDraggingBar || (m_touch && !m_pressed);
    const bool wasPressedHere = m_pressed.has_value();
    m_isDraggingBar = false;
    m_touch.reset();
    m_pressed.reset();
    list(top()).releaseScrollBar();
    const QPoint global = event.globalPosition().toPoint();
    const auto level = levelAt(global);
    if (wasScrolling || !wasPressedHere || !level)
        return;
    const int row = list(*level).rowAt(panel(*level).listPlace(global));
    if (row == PopoverRows::none)
        return;
    if (list(*level).rows().at(row).item.hasSubmenu())
        openSubmenu(*level, row);
    else
        activate(*level, row);
}

void PopoverStack::wheelTurned(const QWheelEvent& event) {
    const auto level = levelAt(event.globalPosition().toPoint());
    if (!level)
        return;
    const int pixels = event.pixelDelta().y();
    list(*level).scrollBy(pixels != 0 ? -pixels
                                      : -event.angleDelta().y() * pointsPerNotch / unitsPerNotch);
}

} // namespace quorvel
