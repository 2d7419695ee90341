#pragma once

#include "foundation/Date.h"

namespace quorvel {

/// Where the program takes its time from, so that tests can drive it by hand.
class Clock {
public:
    virtual ~Clock() = default;

    /// Wall-clock time; may jump when the user sets the clock.
    virtual Date now() const = 0;

    /// Seconds that only grow, for measuring spans.
    virtual double uptime() const = 0;
};

class SystemClock final : public Clock {
public:
    Date now() const override;
    double uptime() const override;
};

} // namespace quorvel
