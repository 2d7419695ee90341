#pragma once

#include "smart/masking/Labels.h"
#include "smart/masking/SecretMasker.h"

#include <optional>

namespace quorvel {

/// Recovery codes, one or many, from the place on where the value of their label begins.
std::optional<SecretRange> codeListAt(QStringView text, qsizetype start);

struct GroupReading {
    std::optional<SecretRange> hidden;
    qsizetype end = 0;
};

/// A key in groups of four, as it is typed into programs that make one-time codes; says also where
/// the groups end, if they are no key.
GroupReading groupedKeyAt(QStringView text, qsizetype start, int leastGroups);

/// The number before the label in "482913 is your verification code".
std::optional<SecretRange> codeBefore(QStringView text, const Label& label);

} // namespace quorvel
