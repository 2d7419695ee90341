#pragma once

#include "platform/DataDetector.h"

#include <optional>

namespace quorvel {

/// The e-mail address around the "@" at this position; it begins at `from` or later.
std::optional<DataMatch> mailAddressAround(QStringView text, qsizetype at, qsizetype from);

} // namespace quorvel
