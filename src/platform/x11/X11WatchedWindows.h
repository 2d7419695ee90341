#pragma once

#include "platform/x11/X11WindowInfo.h"

#include <QHash>
#include <QSet>

namespace quorvel {

/// The windows whose focus and end we are told about, with what is known of them. Knowledge is
/// only kept while the server would tell us that it has become void.
class X11WatchedWindows {
public:
    explicit X11WatchedWindows(X11Connection& connection)
        : m_connection(connection) {}

    /// Asks for the window's events; true when that is new, false when it was watched or is gone.
    bool watch(xcb_window_t window);

    /// Absent when the window is gone.
    std::optional<WindowInfo> info(xcb_window_t window);

    /// To be given every event of the connection.
    void handle(const xcb_generic_event_t& event);

private:
    X11Connection& m_connection;
    QSet<xcb_window_t> m_watched;
    QHash<xcb_window_t, WindowInfo> m_known;
};

} // namespace quorvel
