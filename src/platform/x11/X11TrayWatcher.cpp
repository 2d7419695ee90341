#include "platform/x11/X11TrayWatcher.h"

#include "platform/x11/AtomTable.h"

#include <QSocketNotifier>

#include <xcb/xfixes.h>

namespace quorvel {

namespace {

xcb_window_t rootOf(xcb_connection_t* connection, int number) {
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (; number > 0; --number)
        xcb_screen_next(&screens);
    return screens.data->root;
}

bool hasSelectionEvents(xcb_connection_t* connection) {
    const auto* extension = xcb_get_extension_data(connection, &xcb_xfixes_id);
    if (!extension || !extension->present)
        return false;
    const XcbOwned<xcb_xfixes_query_version_reply_t> version(xcb_xfixes_query_version_reply(
        connection, xcb_xfixes_query_version(connection, 1, 0), nullptr));
    return version != nullptr;
}

} // namespace

X11TrayWatcher::X11TrayWatcher() = default;

X11TrayWatcher::~X11TrayWatcher() = default;

void X11TrayWatcher::start() {
    if (!watchSelection())
        return;
    m_notifier = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(m_connection.get()),
                                                   QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &X11TrayWatcher::readEvents);
    readEvents();
    lookForOwner();
}

bool X11TrayWatcher::watchSelection() {
    int screen = 0;
    m_connection.reset(xcb_connect(nullptr, &screen));
    xcb_connection_t* connection = m_connection.get();
    if (xcb_connection_has_error(connection) || !hasSelectionEvents(connection))
        return false;
    m_selection = AtomTable(connection).atom(QStringLiteral("_NET_SYSTEM_TRAY_S%1").arg(screen));
    xcb_xfixes_select_selection_input(connection, rootOf(connection, screen), m_selection,
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    return true;
}

/// Nothing else was asked for, so any event means a change of the owner.
void X11TrayWatcher::readEvents() {
    bool changed = false;
    while (XcbOwned<xcb_generic_event_t> event{xcb_poll_for_event(m_connection.get())})
        changed = true;
    if (xcb_connection_has_error(m_connection.get())) {
        m_notifier->setEnabled(false);
        setAvailable(false);
    } else if (changed) {
        lookForOwner();
    }
}

void X11TrayWatcher::lookForOwner() {
    const XcbOwned<xcb_get_selection_owner_reply_t> owner(xcb_get_selection_owner_reply(
        m_connection.get(), xcb_get_selection_owner(m_connection.get(), m_selection), nullptr));
    setAvailable(owner && owner->owner != XCB_WINDOW_NONE);
    // Waiting for the answer may have read events that the socket will not announce again.
    if (const XcbOwned<xcb_generic_event_t> event{xcb_poll_for_queued_event(m_connection.get())})
        QMetaObject::invokeMethod(this, &X11TrayWatcher::lookForOwner, Qt::QueuedConnection);
}

void X11TrayWatcher::setAvailable(bool available) {
    if (available == m_available)
        return;
    m_available = available;
    emit trayAvailable(available);
}

} // namespace quorvel
