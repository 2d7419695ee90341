#pragma once

#include "foundation/Modifiers.h"

#include <QObject>
#include <QString>

#include <optional>

namespace quorvel {

/// A key by its place on the keyboard, in the platform's own numbering.
using KeyPosition = quint32;

/// The platform's reference of one registration; 0 is none.
using HotKeyReference = quint64;

struct HotKeyRegistration {
    HotKeyReference reference = 0; ///< 0 when it failed.
    int status = 0;                ///< 0 for success, else the platform's error number.
};

enum class KeyboardChange {
    positions,  ///< Characters moved, or layouts were switched; what is registered stays valid.
    everything, ///< What is registered may be on other keys than it was.
};

/// Keys that reach us whichever program is in front. Main thread only.
class HotKeyCenter : public QObject {
    Q_OBJECT

public:
    /// The position that gives this character in the current keyboard layout (else in another
    /// configured layout); absent when no key does.
    virtual std::optional<KeyPosition> positionFor(QChar character) const = 0;

    /// The key of the number row: 0 for the key labelled 1 … 8 for 9, 9 for 0.
    virtual KeyPosition numberRowPosition(int index) const = 0;

    /// The character by which a shortcut names the key at this position, lower-case: what it gives
    /// in the current layout, or in another one when the current one has no Latin letters. Absent
    /// when `positionFor` would not find the key again by it.
    virtual std::optional<QChar> characterAt(KeyPosition position) const = 0;

    /// One hot key. Any of the optional modifiers may be held as well; a combination with them that
    /// somebody else has is left alone and no failure.
    virtual HotKeyRegistration registerHotKey(KeyPosition position, Modifiers modifiers, quint32 id,
                                              Modifiers optionalModifiers = {}) = 0;
    virtual void unregisterHotKey(HotKeyReference reference) = 0;

signals:
    /// With all the modifiers held, the optional ones among them.
    void pressed(quint32 id, quorvel::Modifiers modifiersHeld);

    /// Positions have to be looked up again.
    void keyboardChanged(quorvel::KeyboardChange change);
};

} // namespace quorvel
