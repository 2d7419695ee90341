#pragma once

#include "smart/masking/ValueCandidate.h"

namespace quorvel {

/// A few digits that belong to a card or a device.
bool isPin(const Candidate& candidate);

/// Digits, perhaps with a letter, that open a door or prove who one is.
bool isOpeningCode(const Candidate& candidate);

/// The answer to a question that proves who one is.
bool isSecretAnswer(const Candidate& candidate);

/// Whether a network is named shortly before.
bool followsNetwork(const Candidate& candidate);

} // namespace quorvel
