#pragma once

#include "smart/masking/ValueCandidate.h"

namespace quorvel {

/// The second argument of a call: words alone may be anything.
bool isArgument(const Candidate& candidate);

/// An access key or the like.
bool isKey(const Candidate& candidate);

/// What must look random, as its label is a common word.
bool isToken(const Candidate& candidate);

/// The key of a network, or of a constant that ends in "KEY".
bool isNetworkKey(const Candidate& candidate);

} // namespace quorvel
