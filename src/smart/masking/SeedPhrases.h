#pragma once

#include "smart/masking/SecretMasker.h"

#include <optional>

namespace quorvel {

/// The twelve to twenty-four words from which the keys of a wallet are made, behind their label;
/// they may be numbered.
std::optional<SecretRange> seedWordsAt(QStringView text, qsizetype start);

/// A text that is nothing but such words.
std::optional<SecretRange> loneSeedWords(QStringView text);

} // namespace quorvel
