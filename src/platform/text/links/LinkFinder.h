#pragma once

#include "platform/DataDetector.h"

namespace quorvel {

/// Appends the links and e-mail addresses of a text, by start; no two overlap.
void findLinks(QStringView text, QList<DataMatch>& found);

} // namespace quorvel
