#pragma once

#include "smart/masking/SecretMasker.h"

#include <optional>

namespace quorvel {

/// The password in "WIFI:T:WPA;S:name;P:password;;", as it is shown in squares to be scanned;
/// `start` is behind "WIFI".
std::optional<SecretRange> wifiPasswordAt(QStringView text, qsizetype start);

} // namespace quorvel
