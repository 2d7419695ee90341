#pragma once

#include "smart/masking/SecretMasker.h"

#include <optional>

namespace quorvel {

/// A run of data characters that is a key or a token by its look alone. Hashes, names, paths and
/// encoded files are none.
std::optional<SecretRange> randomStringIn(QStringView text, qsizetype start, qsizetype end);

/// A generated password that is all the text there is.
std::optional<SecretRange> lonePassword(QStringView text);

} // namespace quorvel
