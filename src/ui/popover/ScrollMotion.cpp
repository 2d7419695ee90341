#include "ui/popover/ScrollMotion.h"

#include <cmath>

namespace quorvel {

namespace {

constexpr int frameMilliseconds = 12;
constexpr qreal glideRate = 22;   ///< Per second, of what is left.
constexpr qreal frictionRate = 3; ///< Per second, of the speed.
constexpr qreal leastSpeed = 25;
constexpr qreal mostSpeed = 6000;
constexpr qreal longestFrame = 0.05;

} // namespace

ScrollMotion::ScrollMotion(QObject* parent)
    : QObject(parent) {
    m_timer.setInterval(frameMilliseconds);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &ScrollMotion::step);
}

void ScrollMotion::glideBy(qreal points) {
    m_speed = 0;
    m_left += points;
    if (m_timer.isActive())
        return;
    m_clock.start();
    m_timer.start();
}

void ScrollMotion::fling(qreal speed) {
    m_left = 0;
    m_speed = std::clamp(speed, -mostSpeed, mostSpeed);
    m_clock.start();
    m_timer.start();
}

void ScrollMotion::stop() {
    m_left = m_speed = 0;
    m_timer.stop();
}

void ScrollMotion::step() {
    const qreal seconds = std::min(qreal(m_clock.restart()) / 1000, longestFrame);
    qreal points = m_speed * seconds;
    m_speed *= std::exp(-frictionRate * seconds);
    if (m_left != 0) {
        points = m_left * (1 - std::exp(-glideRate * seconds));
        if (std::abs(m_left - points) < 1)
            points = m_left;
        m_left -= points;
    }
    if (m_left == 0 && std::abs(m_speed) < leastSpeed)
        stop();
    emit moved(points);
}

} // namespace quorvel
