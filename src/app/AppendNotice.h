#pragma once

#include "foundation/StringTable.h"
#include "paste/AppendCopy.h"
#include "platform/Desktop.h"

namespace quorvel {

/// What the user is told of an addition to the clip: how long the whole is, or what is missing.
Notice appendNotice(const AppendResult& result, const StringTable& strings);

} // namespace quorvel
