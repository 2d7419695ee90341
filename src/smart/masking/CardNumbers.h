#pragma once

#include "smart/masking/SecretMasker.h"

#include <optional>

namespace quorvel {

/// What was read at the beginning of digits: where to read on and, if it is a payment card number,
/// the part of it to hide (all but its last four digits).
struct CardReading {
    std::optional<SecretRange> hidden;
    qsizetype end = 0;
};

CardReading cardNumberAt(QStringView text, qsizetype start);

} // namespace quorvel
