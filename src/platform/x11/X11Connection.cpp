#include "platform/x11/X11Connection.h"

#include "foundation/Log.h"

#include <QSocketNotifier>

namespace quorvel {

namespace {

xcb_window_t rootOf(xcb_connection_t* connection, int number) {
    auto screen = xcb_setup_roots_iterator(xcb_get_setup(connection));
    while (number-- > 0 && screen.rem > 1)
        xcb_screen_next(&screen);
    return screen.data->root;
}

} // namespace

X11Connection::X11Connection(const QByteArray& display)
    : m_atoms(nullptr) {
    int screen = 0;
    m_connection.reset(xcb_connect(display.isEmpty() ? nullptr : display.constData(), &screen));
    m_atoms = AtomTable(m_connection.get());
    if (!isAlive()) {
        logLine(u"[Quorvel X11] no connection to the display"_qs);
        return;
    }
    m_root = rootOf(m_connection.get(), screen);
    m_notifier = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(m_connection.get()),
                                                   QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &X11Connection::readSocket);
}

X11Connection::~X11Connection() = default;

bool X11Connection::isAlive() const {
    return xcb_connection_has_error(m_connection.get()) == 0;
}

xcb_atom_t X11Connection::atom(const QString& name) {
    const xcb_atom_t atom = m_atoms.atom(name);
    keepArrivedEvents();
    return atom;
}

bool X11Connection::succeeded(xcb_void_cookie_t cookie) {
    const XcbOwned<xcb_generic_error_t> error(xcb_request_check(m_connection.get(), cookie));
    keepArrivedEvents();
    return !error && isAlive();
}

void X11Connection::flush() {
    xcb_flush(m_connection.get());
    // Writing may have read as well, to keep both ends from waiting for each other.
    keepArrivedEvents();
}

void X11Connection::keepArrivedEvents() {
    while (xcb_generic_event_t* event = xcb_poll_for_queued_event(m_connection.get()))
        keep(event);
    if (m_arrived.empty() || m_deliveryScheduled)
        return;
    m_deliveryScheduled = true;
    QMetaObject::invokeMethod(this, &X11Connection::deliver, Qt::QueuedConnection);
}

void X11Connection::readSocket() {
    while (xcb_generic_event_t* event = xcb_poll_for_event(m_connection.get()))
        keep(event);
    if (!isAlive()) {
        // A closed socket is readable for ever.
        m_notifier->setEnabled(false);
        logLine(u"[Quorvel X11] the connection to the display is lost"_qs);
    }
    deliver();
}

void X11Connection::keep(xcb_generic_event_t* event) {
    XcbOwned<xcb_generic_event_t> owned(event);
    // Type 0 is the error of an unchecked request, which is only sent where failing is harmless.
    if (event->response_type != 0)
        m_arrived.push_back(std::move(owned));
}

void X11Connection::deliver() {
    m_deliveryScheduled = false;
    while (!m_arrived.empty()) {
        const auto event = std::move(m_arrived.front());
        m_arrived.pop_front();
        emit eventArrived(event.get());
    }
}

} // namespace quorvel
