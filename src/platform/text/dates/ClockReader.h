#pragma once

#include "platform/text/dates/DateParsers.h"

namespace quorvel {

/// A time being read: what is known and where it ends.
struct Clock {
    Moment moment;
    int end = 0;
    DatePiece::Need need = DatePiece::Need::nothing;

    /// Whether "pm" or its like was read, so that a number before a range sign is an hour too.
    bool isHalf = false;
    bool isMarked = false;
};

/// Minutes or seconds of two digits right here, or `Moment::unknown`.
int minutesAt(const DateLine& line, int index);

/// Moves an hour of twelve to its half of the day: 1 is after noon.
void applyHalf(Moment& moment, int half);

/// The time that begins here, without its zone.
std::optional<Clock> clockAt(const DateLine& line, int index);

} // namespace quorvel
