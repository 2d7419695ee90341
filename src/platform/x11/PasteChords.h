#pragma once

#include "foundation/Modifiers.h"
#include "platform/x11/X11Windows.h"

#include <optional>

#include <xkbcommon/xkbcommon.h>

namespace quorvel {

/// The keys by which a program pastes, copies or moves the caret.
struct PasteChord {
    xkb_keysym_t key;
    Modifiers modifiers;
    bool needsPrimary = false; ///< It pastes the PRIMARY selection instead of the clipboard.
};

/// The paste keys of the program with this window class; the usual ones when it is not known for
/// others. Case does not matter.
PasteChord pasteChordFor(const WindowClass& windowClass);

/// The keys by which that program copies; absent when they could do harm there, and what is
/// selected has to be taken from the PRIMARY selection.
std::optional<PasteChord> copyChordFor(const WindowClass& windowClass);

enum class CaretKeys { selectLeft, selectRight, left, right };

/// The keys that move the caret by a character; absent in programs where they do something else.
std::optional<PasteChord> caretChordFor(const WindowClass& windowClass, CaretKeys keys);

} // namespace quorvel
