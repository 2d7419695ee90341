#pragma once

#include "smart/masking/SecretMasker.h"

#include <optional>

namespace quorvel {

/// Whether the beginning of a word is worth a look with `serviceTokenAt`.
bool mayBeginServiceToken(QStringView text, qsizetype start);

/// An access token of a known service that begins there; its prefix and last characters stay
/// visible.
std::optional<SecretRange> serviceTokenAt(QStringView text, qsizetype start);

/// The part to hide of a secret whose first `prefix` units may stay: all but those and the last
/// four, or all but those if little would be left to hide.
SecretRange hiddenPart(qsizetype start, qsizetype end, qsizetype prefix);

} // namespace quorvel
