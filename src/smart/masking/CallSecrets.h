#pragma once

#include "smart/masking/SecretMasker.h"

#include <optional>

namespace quorvel {

/// The last argument of a call that signs in, as in `auth=("robot", "x")` or `login(user, "x")`;
/// the name of the function ends at `end`.
std::optional<SecretRange> callSecretAt(QStringView text, qsizetype start, qsizetype end);

} // namespace quorvel
