#pragma once

#include "app/preferences/SnippetShortcut.h"
#include "platform/HotKeyCenter.h"

#include <QKeyEvent>

namespace quorvel {

/// What a key means to a recording of a shortcut.
struct ChordReading {
    enum class Kind {
        nothing,
        modifiers, ///< Those that are held have changed.
        cancel,
        reset,
        leave,    ///< Moves the focus on.
        chord,    ///< A key with the modifiers held.
        unusable, ///< A key that no character names.
    };

    Kind kind = Kind::nothing;
    Modifiers held;
    SnippetShortcut shortcut; ///< Of a chord.
};

/// A key is named by its place, so that the shortcut does not depend on the layout it was recorded
/// in.
ChordReading readPress(const QKeyEvent& press, const HotKeyCenter& keys);
ChordReading readRelease(const QKeyEvent& release);

} // namespace quorvel
