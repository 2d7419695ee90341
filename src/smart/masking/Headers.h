#pragma once

#include "smart/masking/SecretMasker.h"

#include <optional>

namespace quorvel {

/// The credentials behind "Authorization"; `start` is where that word ends.
std::optional<SecretRange> authorizationAt(QStringView text, qsizetype start);

/// The values of cookies that stand for a session or look random; `start` is where "Cookie" ends.
QList<SecretRange> cookiesAt(QStringView text, qsizetype start);

} // namespace quorvel
