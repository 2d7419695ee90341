#include "platform/x11/X11WatchedWindows.h"

namespace quorvel {

bool X11WatchedWindows::watch(xcb_window_t window) {
    if (window == XCB_WINDOW_NONE || m_watched.contains(window))
        return false;
    const quint32 mask = XCB_EVENT_MASK_FOCUS_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    const auto cookie =
        xcb_change_window_attributes_checked(m_connection.xcb(), window, XCB_CW_EVENT_MASK, &mask);
    if (!m_connection.succeeded(cookie))
        return false;
    m_watched.insert(window);
    return true;
}

std::optional<WindowInfo> X11WatchedWindows::info(xcb_window_t window) {
    const auto known = m_known.constFind(window);
    if (known != m_known.cend())
        return *known;
    watch(window);
    const std::optional<WindowInfo> info = readWindowInfo(m_connection, window);
    if (info && m_watched.contains(window))
        m_known.insert(window, *info);
    return info;
}

void X11WatchedWindows::handle(const xcb_generic_event_t& event) {
    // A window may change its class while it is not shown, and its number is used again later.
    if ((event.response_type & 0x7f) == XCB_UNMAP_NOTIFY)
        m_known.remove(reinterpret_cast<const xcb_unmap_notify_event_t&>(event).window);
    if ((event.response_type & 0x7f) != XCB_DESTROY_NOTIFY)
        return;
    const auto& destroyed = reinterpret_cast<const xcb_destroy_notify_event_t&>(event);
    m_known.remove(destroyed.window);
    m_watched.remove(destroyed.window);
}

} // namespace quorvel
