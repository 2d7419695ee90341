#pragma once

#include <QByteArray>
#include <QString>

#include <memory>

struct xcb_connection_t;

namespace quorvel {

/// Looks at a display from outside, for the conditions that tests wait for.
class DisplayProbe {
public:
    /// `display` is a name such as ":7".
    explicit DisplayProbe(const QString& display);
    ~DisplayProbe();

    bool isConnected() const;

    /// Whether a window manager is at work.
    bool hasWindowManager() const;

    /// Whether the window manager has come so far that it answers requests. The request is made
    /// anew each time: one that is still starting overlooks some.
    bool windowManagerAnswers() const;

    /// Whether some program takes tray icons in the older, window-embedding way.
    bool hasTray() const { return owner("_NET_SYSTEM_TRAY_S0") != 0; }

    /// The window that owns a selection; 0 for none.
    quint32 owner(const QByteArray& selection) const;

private:
    quint32 atom(const QByteArray& name) const;
    quint32 windowIn(quint32 window, const QByteArray& property) const;
    quint32 root() const;

    std::unique_ptr<xcb_connection_t, void (*)(xcb_connection_t*)> m_connection;
    quint32 m_window = 0; ///< Never shown.
};

} // namespace quorvel
