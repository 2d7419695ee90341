#pragma once

#include "smart/masking/Labels.h"
#include "smart/masking/SecretMasker.h"

#include <optional>

namespace quorvel {

/// What stands between a label and its value.
enum class Separator : quint8 { blank, tab, colon, equals, verb, tag, lineEnd };

struct LabelledValue {
    Separator separator = Separator::colon;
    bool isQuoted = false;

    /// "a=b" without blanks around.
    bool isTight = false;
    qsizetype start = 0;
    qsizetype end = 0;

    QStringView in(QStringView text) const { return text.mid(start, end - start); }
};

/// The value that belongs to a label, whatever it is.
std::optional<LabelledValue> valueOf(QStringView text, const Label& label);

/// Whether the value is a secret rather than prose, code or a placeholder.
bool isSecretValue(QStringView text, const Label& label, const LabelledValue& value);

} // namespace quorvel
