#pragma once

#include "foundation/StringTable.h"
#include "menu/MenuItem.h"

namespace quorvel {

/// The names of the modifiers and of the key, if there is one, such as "Super" and "1".
QStringList keyEquivalentParts(const KeyEquivalent& equivalent, const StringTable& strings);

/// A key equivalent with the names of this keyboard, such as "Super+1"; empty for none.
QString keyEquivalentText(const KeyEquivalent& equivalent, const StringTable& strings);

} // namespace quorvel
