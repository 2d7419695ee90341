#pragma once

#include <QCoreApplication>

#include <chrono>
#include <functional>
#include <thread>

namespace quorvel {

inline constexpr std::chrono::milliseconds usualPatience{15000};

/// Looks again and again, and lets the event loop turn meanwhile, until the condition holds (true)
/// or the time is over (false). For conditions that other processes bring about.
inline bool waitUntil(const std::function<bool()>& condition,
                      std::chrono::milliseconds patience = usualPatience) {
    const auto end = std::chrono::steady_clock::now() + patience;
    while (true) {
        if (QCoreApplication::instance())
            QCoreApplication::processEvents();
        if (condition())
            return true;
        if (std::chrono::steady_clock::now() >= end)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

} // namespace quorvel
