#pragma once

#include "platform/x11/X11Connection.h"

#include <QList>

#include <functional>

namespace quorvel {

/// A key to be pressed, so many times, while others are held.
struct KeyStroke {
    xcb_keycode_t key;
    QList<xcb_keycode_t> modifierKeys;
    int times = 1;
};

struct KeyAction {
    enum Kind { press, release };

    Kind kind;
    xcb_keycode_t key;

    bool operator==(const KeyAction&) const = default;
};

/// The actions of a stroke between keys that the user holds: his modifiers are released before
/// and pressed again after it; his other keys are released for good.
QList<KeyAction> strokeActions(const KeyStroke& stroke, const QList<xcb_keycode_t>& heldModifiers,
                               const QList<xcb_keycode_t>& heldKeys);

/// Keys posted into the display server as if they were typed.
class X11SyntheticKeys {
public:
    explicit X11SyntheticKeys(X11Connection& connection);

    bool isAvailable() const;

    /// Those of the keys that are down now.
    QList<xcb_keycode_t> heldAmong(const QList<xcb_keycode_t>& keys) const;

    /// Posts the stroke at once unless `isStillRight` says no; the server serves nobody else from
    /// that question to the last key. True when the server has processed the keys.
    bool post(const KeyStroke& stroke, const QList<xcb_keycode_t>& modifierKeys,
              const QList<xcb_keycode_t>& otherKeys, const std::function<bool()>& isStillRight);

    /// Modifiers that were pressed again for the user stay down on our own device when he lets go
    /// of his. Releases those; true when none is left, else it has to be called again later.
    bool tidyUp();

private:
    void send(const KeyAction& action);

    X11Connection& m_connection;
    bool m_hasExtension = false;
    QList<xcb_keycode_t> m_pressedForUser;
};

} // namespace quorvel
