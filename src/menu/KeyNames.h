#pragma once

#include "foundation/StringTable.h"
#include "menu/MenuItem.h"

namespace quorvel {

/// A key equivalent with the names of this keyboard, such as "Super+1"; empty for none.
QString keyEquivalentText(const KeyEquivalent& equivalent, const StringTable& strings);

} // namespace quorvel
