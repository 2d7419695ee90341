#pragma once

#include "platform/x11/X11Connection.h"

#include <QList>
#include <QString>

namespace quorvel {

/// The two texts of WM_CLASS; both empty when a window has none.
struct WindowClass {
    QString instance;
    QString name;

    bool isEmpty() const { return instance.isEmpty() && name.isEmpty(); }
    bool operator==(const WindowClass&) const = default;
};

/// Questions about windows. Each is answered by the server at once; a window that is gone has
/// nothing and is nowhere.
class X11Windows {
public:
    explicit X11Windows(X11Connection& connection)
        : m_connection(connection) {}

    /// The window with the input focus; 0 when none has it.
    xcb_window_t inputFocus() const;

    bool exists(xcb_window_t window) const;

    /// Whether `window` is `ancestor` or lies inside it.
    bool isInside(xcb_window_t window, xcb_window_t ancestor) const;

    /// Whether a target (a top window and an element in it) has the focus, which is at `focus`.
    /// An element that is 0, gone or not in the window stands for the whole window; a program may
    /// hand the focus on to a part of the element.
    bool holdsFocus(xcb_window_t window, xcb_window_t element, xcb_window_t focus) const;

    WindowClass classOf(xcb_window_t window) const;

    /// The window itself or the nearest one around it that has a class; 0 when there is none.
    xcb_window_t topWindow(xcb_window_t window) const;

    /// The values of a property of 32-bit items; empty when it is missing or of another kind.
    QList<quint32> values(xcb_window_t window, const QString& property, xcb_atom_t type) const;

    /// The bytes of a property of 8-bit items; empty when it is missing or of another kind.
    QByteArray bytes(xcb_window_t window, xcb_atom_t property) const;

private:
    xcb_window_t parentOf(xcb_window_t window) const;

    X11Connection& m_connection;
};

} // namespace quorvel
