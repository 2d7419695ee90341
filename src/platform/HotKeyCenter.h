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

/// Keys that reach us whichever program is in front. Main thread only.
class HotKeyCenter : public QObject {
    Q_OBJECT

public:
    /// The position that gives this character in the current keyboard layout (else in another
    /// configured layout); absent when no key does.
    virtual std::optional<KeyPosition> positionFor(QChar character) const = 0;

    /// The key of the number row: 0 for the key labelled 1 … 8 for 9, 9 for 0.
    virtual KeyPosition numberRowPosition(int index) const = 0;

    virtual HotKeyRegistration registerHotKey(KeyPosition position, Modifiers modifiers,
                                              quint32 id) = 0;
    virtual void unregisterHotKey(HotKeyReference reference) = 0;

signals:
    void pressed(quint32 id);

    /// Keys moved or layouts were switched: positions have to be looked up again.
    void keyboardChanged();
};

} // namespace quorvel
