#pragma once

#include <QString>

namespace quorvel {

/// Whether the text is one JSON object or array (RFC 8259), at most 512 levels deep, and nothing
/// else. Builds nothing, takes no stack for depth, stops at the first fault.
bool isJsonDocument(QStringView text);

} // namespace quorvel
