#pragma once

#include "smart/masking/Gaps.h"
#include "smart/masking/SecretMasker.h"

#include <optional>

namespace quorvel {

struct LabelledValue {
    Separator separator = Separator::colon;
    bool isQuoted = false;

    /// "a=b" without blanks around.
    bool isTight = false;

    /// Other words stand between it and the label.
    bool isFar = false;
    qsizetype start = 0;
    qsizetype end = 0;

    QStringView in(QStringView text) const { return text.mid(start, end - start); }
};

/// The value that belongs to a label, whatever it is.
std::optional<LabelledValue> valueOf(QStringView text, const Label& label);

/// Whether the value is a secret rather than prose, code or a placeholder.
bool isSecretValue(QStringView text, const Label& label, const LabelledValue& value);

} // namespace quorvel
