#pragma once

#include "foundation/StringTable.h"
#include "menu/MenuItem.h"

#include <QKeyEvent>

namespace quorvel {

class HotKeyCenter;

/// The four modifiers out of Qt's; Super is what Qt calls Meta.
Modifiers modifiersFrom(Qt::KeyboardModifiers modifiers);

/// A key equivalent with the names of this keyboard, such as "Super+1"; empty for none.
QString keyEquivalentText(const KeyEquivalent& equivalent, const StringTable& strings);

/// Whether this press means the key equivalent: the same modifiers, and a key that gives the
/// character or, when `positions` is there, stands where the character is found.
bool means(const QKeyEvent& press, const KeyEquivalent& equivalent, const HotKeyCenter* positions);

} // namespace quorvel
