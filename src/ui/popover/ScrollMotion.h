#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

namespace quorvel {

/// Moves a list smoothly: gliding for the notches of a wheel, slowing down after a flick.
class ScrollMotion final : public QObject {
    Q_OBJECT

public:
    explicit ScrollMotion(QObject* parent);

    /// Further by so many points; adds to what is still to be done.
    void glideBy(qreal points);

    /// On at this speed, in points per second, losing it little by little.
    void fling(qreal speed);

    void stop();

signals:
    void moved(qreal points);

private:
    void step();

    QTimer m_timer;
    QElapsedTimer m_clock;
    qreal m_left = 0;
    qreal m_speed = 0;
};

} // namespace quorvel
