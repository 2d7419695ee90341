#pragma once

#include "foundation/Modifiers.h"
#include "platform/x11/X11Windows.h"

#include <xkbcommon/xkbcommon.h>

namespace quorvel {

/// The keys by which a program pastes.
struct PasteChord {
    xkb_keysym_t key;
    Modifiers modifiers;
    bool needsPrimary = false; ///< It pastes the PRIMARY selection instead of the clipboard.
};

/// The paste keys of the program with this window class; the usual ones when it is not known for
/// others. Case does not matter.
PasteChord pasteChordFor(const WindowClass& windowClass);

} // namespace quorvel
