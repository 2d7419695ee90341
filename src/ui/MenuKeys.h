#pragma once

#include "menu/KeyNames.h"

#include <QKeyEvent>

namespace quorvel {

class HotKeyCenter;

/// The four modifiers out of Qt's; Super is what Qt calls Meta.
Modifiers modifiersFrom(Qt::KeyboardModifiers modifiers);

/// Whether this press surely edits the text of a search field, and nothing else.
bool isTyping(const QKeyEvent& press);

/// Whether this press means the key equivalent: the same modifiers, and a key that gives the
/// character or, when `positions` is there, stands where the character is found.
bool means(const QKeyEvent& press, const KeyEquivalent& equivalent, const HotKeyCenter* positions);

} // namespace quorvel
