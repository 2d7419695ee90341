#pragma once

#include "smart/masking/SecretMasker.h"

#include <optional>

namespace quorvel {

/// A signed or encrypted JSON web token that begins there ("eyJ").
std::optional<SecretRange> jsonWebTokenAt(QStringView text, qsizetype start);

} // namespace quorvel
