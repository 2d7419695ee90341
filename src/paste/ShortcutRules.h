#pragma once

#include "foundation/StringTable.h"
#include "paste/HotKeyTable.h"
#include "platform/HotKeyCenter.h"

namespace quorvel {

/// Why keys cannot be a shortcut for all programs, as a sentence for the user; empty when they can.
QString objectionTo(const SnippetShortcut& shortcut, const StringTable& strings);

/// What the user calls the hot key of ours, other than this one, that has the same keys; empty when
/// none has. Hot keys that nobody answers yet count: their keys are spoken for.
QString hotKeyWith(const SnippetShortcut& shortcut, HotKeyId exceptFor,
                   const Preferences& preferences, const HotKeyCenter& center,
                   const StringTable& strings);

} // namespace quorvel
