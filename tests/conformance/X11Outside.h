#pragma once

#include "platform/x11/X11Windows.h"

#include <QList>

namespace quorvel {

/// Another program on the display, with windows, and a user at the keyboard: a client of its own.
class X11Outside {
public:
    struct Key {
        xcb_keycode_t code;
        quint16 state; ///< Of the modifiers before the press.

        bool operator==(const Key&) const = default;
    };

    explicit X11Outside(const QByteArray& display = {});
    ~X11Outside();

    X11Connection& connection() { return m_connection; }

    /// Shows a top window of this class and waits until it is in front.
    xcb_window_t open(const QByteArray& windowClass, const QByteArray& type = {});
    xcb_window_t addElement(xcb_window_t window);
    void close(xcb_window_t window);

    /// Moves the focus there and waits for it.
    void focus(xcb_window_t window);
    xcb_window_t focused();

    void press(xcb_keycode_t key) { fake(XCB_KEY_PRESS, key); }
    void release(xcb_keycode_t key) { fake(XCB_KEY_RELEASE, key); }

    /// Presses the keys in this order and lets go of them in the opposite one.
    void type(const QList<xcb_keycode_t>& keys);
    void chooseGroup(int group);
    bool isDown(xcb_keycode_t key);

    /// Takes a combination as a hot key; false when somebody has it.
    bool grab(xcb_keycode_t key, quint16 modifiers);

    /// The presses that have reached this window so far, without those of modifier keys.
    QList<Key> keys(xcb_window_t window);

private:
    xcb_window_t create(xcb_window_t parent, quint16 width, quint16 height);
    void fake(quint8 kind, xcb_keycode_t key);
    void settle();
    bool isSettled();
    xcb_window_t activeWindow() const;

    mutable X11Connection m_connection;
    const X11Windows m_windows;
    bool m_hasWindowManager = false;
    QList<std::pair<xcb_window_t, Key>> m_keys;
    QList<xcb_keycode_t> m_pressed;
    QList<xcb_window_t> m_open; ///< Top windows, closed ones included.
};

namespace keyboard {

inline constexpr xcb_keycode_t control = 37;
inline constexpr xcb_keycode_t shift = 50;
inline constexpr xcb_keycode_t alt = 64;
inline constexpr xcb_keycode_t capsLock = 66;
inline constexpr xcb_keycode_t numLock = 77;
inline constexpr xcb_keycode_t super = 133;
inline constexpr xcb_keycode_t insert = 118;
inline constexpr xcb_keycode_t one = 10;
inline constexpr xcb_keycode_t v = 55;

} // namespace keyboard

} // namespace quorvel
