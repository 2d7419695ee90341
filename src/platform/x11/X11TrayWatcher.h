#pragma once

#include "platform/x11/XcbReply.h"

#include <QObject>

#include <memory>

class QSocketNotifier;

namespace quorvel {

/// Tells whether a window on this display takes in tray icons (owns `_NET_SYSTEM_TRAY_S` and the
/// screen's number). Has a connection of its own and sleeps between events. Without a display it
/// says no, once and for all.
class X11TrayWatcher final : public QObject {
    Q_OBJECT

public:
    X11TrayWatcher();
    ~X11TrayWatcher() override;

    /// Connects, and tells at once when a tray is there.
    void start();

    bool isTrayAvailable() const { return m_available; }

signals:
    void trayAvailable(bool available);

private:
    bool watchSelection();
    void readEvents();
    void lookForOwner();
    void setAvailable(bool available);

    XcbConnection m_connection;
    std::unique_ptr<QSocketNotifier> m_notifier;
    xcb_atom_t m_selection = XCB_ATOM_NONE;
    bool m_available = false;
};

} // namespace quorvel
