#pragma once

#include "platform/x11/AtomTable.h"
#include "platform/x11/XcbReply.h"

#include <QObject>

#include <deque>
#include <memory>

class QSocketNotifier;

namespace quorvel {

/// A connection of our own to the display server, served by the main loop. When it cannot be made
/// or is lost, every request is answered with nothing and no event comes any more. Main thread
/// only.
class X11Connection final : public QObject {
    Q_OBJECT

public:
    /// An empty name stands for the display of the environment.
    explicit X11Connection(const QByteArray& display = {});
    ~X11Connection() override;

    bool isAlive() const;
    xcb_connection_t* xcb() const { return m_connection.get(); }
    xcb_window_t root() const { return m_root; }
    xcb_atom_t atom(const QString& name);

    /// The answer to a request; empty when the server refused it (windows vanish at any time).
    template <typename Reply, typename Cookie>
    XcbOwned<Reply> reply(Reply* (*fetch)(xcb_connection_t*, Cookie, xcb_generic_error_t**),
                          Cookie cookie) {
        XcbOwned<Reply> reply(fetch(m_connection.get(), cookie, nullptr));
        keepArrivedEvents();
        return reply;
    }

    /// Whether a checked request without an answer was carried out.
    bool succeeded(xcb_void_cookie_t cookie);

    void flush();

    /// To be called after somebody else has waited for a reply on this connection: events that
    /// came with it do not wake the main loop.
    void keepArrivedEvents();

signals:
    /// Never emitted from inside a request. Errors of unchecked requests are left out.
    void eventArrived(const xcb_generic_event_t* event);

private:
    void readSocket();
    void keep(xcb_generic_event_t* event);
    void deliver();

    XcbConnection m_connection;
    AtomTable m_atoms;
    xcb_window_t m_root = XCB_WINDOW_NONE;
    std::unique_ptr<QSocketNotifier> m_notifier;
    std::deque<XcbOwned<xcb_generic_event_t>> m_arrived;
    bool m_deliveryScheduled = false;
};

} // namespace quorvel
