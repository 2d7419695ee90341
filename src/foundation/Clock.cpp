#include "foundation/Clock.h"

#include <chrono>

namespace quorvel {

using Seconds = std::chrono::duration<double>;

Date SystemClock::now() const {
    const auto sinceEpoch = std::chrono::system_clock::now().time_since_epoch();
    return Date::fromUnixSeconds(std::chrono::duration_cast<Seconds>(sinceEpoch).count());
}

double SystemClock::uptime() const {
    const auto sinceBoot = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<Seconds>(sinceBoot).count();
}

} // namespace quorvel
