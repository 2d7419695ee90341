#pragma once

#include "smart/masking/SecretMasker.h"

#include <optional>

namespace quorvel {

/// The password between a scheme's "://" and the host; `start` is where the slashes end.
std::optional<SecretRange> urlPasswordAt(QStringView text, qsizetype start);

/// Where the address that holds the place ends.
qsizetype endOfUrl(QStringView text, qsizetype start);

} // namespace quorvel
