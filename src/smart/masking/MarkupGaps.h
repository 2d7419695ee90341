#pragma once

#include "smart/masking/Gaps.h"

namespace quorvel {

/// "<add key=\"SmtpPassword\" value=\"x\"/>", "<property name=\"password\">x</property>".
std::optional<Gap> attributeGap(QStringView text, const Label& label);

/// Behind "</key>", with the beginning of the element that follows.
std::optional<Gap> nextElementGap(QStringView text, qsizetype at);

/// "f('label', 'value')", "setLabel('value')".
std::optional<Gap> argumentGap(QStringView text, const Label& label);

} // namespace quorvel
