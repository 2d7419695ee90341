#include "ui/popover/PopoverPointer.h"

#include <QMouseEvent>
#include <QTouchEvent>
#include <QWheelEvent>

#include <cmath>

namespace quorvel {

namespace {

constexpr int settleMilliseconds = 150;
constexpr int jitter = 3;          ///< Points that a hand moves without meaning it.
constexpr qreal dragDistance = 10; ///< After which a finger scrolls.
constexpr int wayBack = 5;         ///< Points over which the direction is looked at.
constexpr int notch = 120;         ///< Of a wheel, in eighths of a degree.
constexpr int pointsPerNotch = 84;
constexpr qreal leastFling = 120;

} // namespace

PopoverPointer::PopoverPointer(PopoverStack& stack)
    : m_stack(stack) {
    m_settling.setSingleShot(true);
    m_settling.setInterval(settleMilliseconds);
    connect(&m_settling, &QTimer::timeout, this, &PopoverPointer::settle);
    m_clock.start();
}

void PopoverPointer::begin(QPoint pointer) {
    m_opened = m_last = m_before = pointer;
    m_isPressed = m_isScrolling = m_hasMoved = false;
    m_finger.reset();
}

void PopoverPointer::end() {
    m_settling.stop();
    m_finger.reset();
}

void PopoverPointer::take(QEvent& event) {
    switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return press(static_cast<QMouseEvent&>(event));
    case QEvent::MouseMove:
        return move(static_cast<QMouseEvent&>(event));
    case QEvent::MouseButtonRelease:
        return release(static_cast<QMouseEvent&>(event));
    case QEvent::Wheel:
        return turn(static_cast<QWheelEvent&>(event));
    default:
        return touch(static_cast<QTouchEvent&>(event));
    }
}

void PopoverPointer::press(const QMouseEvent& press) {
    const QPoint place = press.globalPosition().toPoint();
    const Spot spot = m_stack.spotAt(place);
    if (spot.level < 0)
        return emit pressedOutside();
    m_isPressed = press.button() == Qt::LeftButton;
    PopoverList& list = m_stack.list(spot.level);
    list.motion().stop();
    const QPoint inside = list.mapFromGlobal(place);
    if (m_isPressed)
        m_isScrolling = list.isOnScrollBar(inside);
    if (m_isPressed && m_isScrolling)
        list.pressScrollBar(inside);
    else if (m_stack.isSelectable(spot))
        hover(place);
}

/// Events without any movement come when windows appear or rows move under the pointer.
void PopoverPointer::move(const QMouseEvent& move) {
    const QPoint place = move.globalPosition().toPoint();
    if (place == m_last)
        return;
    if (!m_hasMoved && (place - m_opened).manhattanLength() <= jitter)
        return;
    m_hasMoved = true;
    if (const int level = heldScrollBar(); level >= 0) {
        m_last = place;
        return m_stack.list(level).dragScrollBar(m_stack.list(level).mapFromGlobal(place));
    }
    updateScrollBars(place);
    const QPoint from = m_before;
    m_last = place;
    if ((place - m_before).manhattanLength() >= wayBack)
        m_before = place;
    emit moved();
    if (isOnItsWay(from, place))
        return m_settling.start();
    hover(place);
}

/// From a row to the submenu that it has opened, across the rows between.
bool PopoverPointer::isOnItsWay(const QPoint& from, const QPoint& to) {
    const Spot spot = m_stack.spotAt(to);
    const int submenu = spot.level + 1;
    return spot.level >= 0 && submenu < m_stack.depth() &&
           m_stack.list(spot.level).openRow() != spot.row &&
           isHeadingFor(m_stack.panel(submenu).place(), from, to);
}

void PopoverPointer::hover(const QPoint& place) {
    const Spot spot = m_stack.spotAt(place);
    if (!m_stack.isSelectable(spot))
        return;
    for (int level = 0; level < spot.level; ++level) // The way to it, as it may have been left.
        m_stack.list(level).highlight(m_stack.list(level).openRow(), PopoverList::Reveal::no);
    m_stack.highlight(spot, PopoverList::Reveal::no);
    m_settling.start();
}

/// The pointer has stayed: the submenu of its row opens, another one closes.
void PopoverPointer::settle() {
    const Spot spot = m_stack.spotAt(m_last);
    if (!m_stack.isSelectable(spot))
        return;
    if (m_stack.highlighted() != spot)
        m_stack.highlight(spot, PopoverList::Reveal::no);
    PopoverList& list = m_stack.list(spot.level);
    if (list.openRow() == spot.row)
        return;
    if (list.rows().item(spot.row).hasSubmenu())
        m_stack.openSubmenu(spot, PopoverStack::By::pointer);
    else
        m_stack.closeSubmenus(spot.level);
}

/// The release of a press elsewhere chooses, too, when the pointer has been moved here since.
void PopoverPointer::release(const QMouseEvent& release) {
    const bool wasPressed = std::exchange(m_isPressed, false);
    if (std::exchange(m_isScrolling, false))
        return releaseScrollBar();
    if (release.button() != Qt::LeftButton || !(wasPressed || m_hasMoved))
        return;
    const Spot spot = m_stack.spotAt(release.globalPosition().toPoint());
    m_settling.stop();
    if (!m_stack.dismissHint(spot, release.globalPosition().toPoint()))
        m_stack.activate(spot, PopoverStack::By::pointer);
}

/// Its panel may have closed meanwhile.
void PopoverPointer::releaseScrollBar() {
    if (const int level = heldScrollBar(); level >= 0)
        m_stack.list(level).releaseScrollBar();
}

int PopoverPointer::heldScrollBar() const {
    for (int level = 0; level < m_stack.depth(); ++level)
        if (m_stack.list(level).isScrollBarHeld())
            return level;
    return -1;
}

void PopoverPointer::updateScrollBars(const QPoint& place) {
    for (int level = 0; level < m_stack.depth(); ++level) {
        PopoverList& list = m_stack.list(level);
        list.setScrollBarHovered(m_stack.spotAt(place).level == level &&
                                 list.isOnScrollBar(list.mapFromGlobal(place)));
    }
}

/// A wheel with notches glides, a touchpad is followed exactly.
void PopoverPointer::turn(const QWheelEvent& wheel) {
    const Spot spot = m_stack.spotAt(wheel.globalPosition().toPoint());
    if (spot.level < 0)
        return;
    PopoverList& list = m_stack.list(spot.level);
    const int angle = wheel.angleDelta().y();
    const bool hasNotches = angle != 0 && angle % notch == 0 && wheel.phase() == Qt::NoScrollPhase;
    if (!wheel.pixelDelta().isNull() && !hasNotches) {
        list.motion().stop();
        list.scrollBy(-wheel.pixelDelta().y());
    } else if (hasNotches) {
        list.motion().glideBy(-qreal(angle) * pointsPerNotch / notch);
    } else {
        list.motion().stop();
        list.scrollBy(-qreal(angle) * pointsPerNotch / notch);
    }
}

void PopoverPointer::touch(QTouchEvent& touch) {
    switch (touch.type()) {
    case QEvent::TouchBegin:
        return beginTouch(touch);
    case QEvent::TouchUpdate:
        return moveFinger(touch.points().constFirst().globalPosition());
    case QEvent::TouchEnd:
        return endTouch();
    default:
        m_finger.reset();
    }
}

/// What is not on a list, such as the search field, gets the press of a mouse instead.
void PopoverPointer::beginTouch(QTouchEvent& touch) {
    const QPointF place = touch.points().constFirst().globalPosition();
    const Spot spot = m_stack.spotAt(place.toPoint());
    if (spot.level < 0)
        return emit pressedOutside();
    PopoverList& list = m_stack.list(spot.level);
    if (!list.rect().contains(list.mapFromGlobal(place.toPoint())))
        return touch.ignore();
    list.motion().stop();
    m_finger = {spot, place, place, 0, m_clock.elapsed()};
}

void PopoverPointer::moveFinger(QPointF place) {
    if (!m_finger || m_finger->start.level >= m_stack.depth())
        return;
    Finger& finger = *m_finger;
    finger.isDragging = finger.isDragging || std::abs(place.y() - finger.first.y()) > dragDistance;
    const qint64 now = m_clock.elapsed();
    const qreal distance = finger.last.y() - place.y();
    const qreal seconds = std::max<qreal>(1, qreal(now - finger.time)) / 1000;
    finger.speed = 0.4 * finger.speed + 0.6 * distance / seconds;
    finger.time = now;
    finger.last = place;
    if (finger.isDragging)
        m_stack.list(finger.start.level).scrollBy(distance);
}

void PopoverPointer::endTouch() {
    if (!m_finger || m_finger->start.level >= m_stack.depth())
        return m_finger.reset();
    const Finger finger = *std::exchange(m_finger, std::nullopt);
    if (!finger.isDragging) {
        if (!m_stack.isSelectable(finger.start))
            return;
        m_stack.highlight(finger.start, PopoverList::Reveal::no);
        return m_stack.activate(finger.start, PopoverStack::By::pointer);
    }
    if (std::abs(finger.speed) > leastFling)
        m_stack.list(finger.start.level).motion().fling(finger.speed);
}

} // namespace quorvel
