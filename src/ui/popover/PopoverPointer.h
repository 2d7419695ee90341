#pragma once

#include "ui/popover/PopoverStack.h"

#include <QElapsedTimer>

#include <optional>

class QMouseEvent;
class QTouchEvent;
class QWheelEvent;

namespace quorvel {

/// What mouse, wheel and fingers do in the popover.
class PopoverPointer final : public QObject {
    Q_OBJECT

public:
    explicit PopoverPointer(PopoverStack& stack);

    /// The popover has been opened at a pointer that rests there.
    void begin(QPoint pointer);
    void end();
    void take(QEvent& event);

    /// Where the pointer was last; it rests there.
    QPoint lastPlace() const { return m_last; }

signals:
    /// Somewhere beside the popover was pressed.
    void pressedOutside();

    /// The user has moved the pointer.
    void moved();

private:
    using Spot = PopoverStack::Spot;

    struct Finger {
        Spot start;
        QPointF first;
        QPointF last;
        qreal speed = 0;
        qint64 time = 0;
        bool isDragging = false;
    };

    void press(const QMouseEvent& press);
    void move(const QMouseEvent& move);
    void release(const QMouseEvent& release);
    void turn(const QWheelEvent& wheel);
    void touch(QTouchEvent& touch);
    void beginTouch(QTouchEvent& touch);
    void moveFinger(QPointF place);
    void endTouch();
    void hover(const QPoint& place);
    bool isOnItsWay(const QPoint& from, const QPoint& to);
    void settle();
    void updateScrollBars(const QPoint& place);
    void releaseScrollBar();
    int heldScrollBar() const;

    PopoverStack& m_stack;
    QTimer m_settling; ///< Until a submenu opens or closes below a resting pointer.
    QElapsedTimer m_clock;
    QPoint m_opened;
    QPoint m_last;
    QPoint m_before; ///< A little way back.
    std::optional<Finger> m_finger;
    bool m_isPressed = false;
    bool m_isScrolling = false; ///< The press was on a scroll bar.
    bool m_hasMoved = false;
};

} // namespace quorvel
