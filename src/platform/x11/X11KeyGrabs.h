#pragma once

#include "foundation/Modifiers.h"
#include "platform/HotKeyCenter.h"

#include <QList>

#include <xcb/xcb.h>

namespace quorvel {

/// Passive grabs of keys on the root window, each in every state of the lock keys. Every call
/// returns when the server has carried it out.
class X11KeyGrabs {
public:
    struct Grab {
        HotKeyReference reference; ///< Of the hot key that it belongs to.
        xcb_keycode_t key;
        quint16 mask;    ///< The server's bits of the modifiers.
        quint16 numLock; ///< The Num Lock bit for which it is made.
        Modifiers modifiers;

        bool isFor(xcb_keycode_t otherKey, quint16 otherMask) const {
            return key == otherKey && mask == otherMask;
        }
    };
    struct Failure {
        Grab grab;
        int status; ///< The server's error number.
    };

    X11KeyGrabs(xcb_connection_t* connection, xcb_window_t root);
    ~X11KeyGrabs();

    /// Takes those that are free, each with all its lock variants or not at all, and returns the
    /// others. What is ours already is not free.
    QList<Failure> add(const QList<Grab>& wanted);
    void remove(HotKeyReference reference);

    /// Null when we have no such grab; valid until the next change.
    const Grab* find(xcb_keycode_t key, quint16 mask) const;

    /// Lets this combination pass until `standBack`, which returns what could not be had again.
    void standAside(xcb_keycode_t key, quint16 mask);
    QList<Failure> standBack();

private:
    QList<Failure> take(const QList<Grab>& wanted);
    QList<xcb_void_cookie_t> send(const Grab& grab);
    int firstError(const QList<xcb_void_cookie_t>& cookies);
    void release(const Grab& grab);
    void roundTrip();

    xcb_connection_t* const m_connection;
    const xcb_window_t m_root;
    QList<Grab> m_grabs;
    QList<Grab> m_aside;
};

} // namespace quorvel
