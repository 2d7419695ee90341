#pragma once

#include "smart/masking/LabelledValues.h"

namespace quorvel {

constexpr qsizetype longestValue = 1000;

/// Where a value without quotes ends.
qsizetype endOfValue(QStringView text, const Label& label, const LabelledValue& value);

/// The end without the punctuation of the sentence around the value.
qsizetype withoutClosingMarks(QStringView text, qsizetype start, qsizetype end);

} // namespace quorvel
