#pragma once

#include "platform/Workspace.h"
#include "platform/desktop/DesktopFiles.h"
#include "platform/x11/X11WatchedWindows.h"

#include <QDeadlineTimer>

namespace quorvel {

/// The programs of an X session, with or without a window manager. Told by the server of every
/// change; never polls.
class X11Workspace final : public Workspace {
    Q_OBJECT

public:
    X11Workspace(X11Connection& connection, DesktopFiles& desktopFiles);

    std::optional<RunningApplication> frontmostApplication() const override;
    quint64 focusedElement() const override;
    bool isRunning(const FocusTarget& target) const override;
    void activate(const FocusTarget& target) override;
    bool announcesChanges() const override;

private:
    struct Focus {
        xcb_window_t front = XCB_WINDOW_NONE;
        xcb_window_t element = XCB_WINDOW_NONE;

        bool operator==(const Focus&) const = default;
    };

    void watchRoot();
    bool hasWindowManager() const;
    xcb_window_t frontWindow(xcb_window_t element) const;
    Focus readFocus() const;
    Focus watchFocus();

    void handle(const xcb_generic_event_t& event);
    bool mayMoveFocus(const xcb_generic_event_t& event);
    void scheduleRefresh();
    void refresh();

    void raise(xcb_window_t window);
    void giveFocus(xcb_window_t window);
    void completeActivation();

    X11Connection& m_connection;
    DesktopFiles& m_desktopFiles;
    const X11Windows m_windows;
    const std::unique_ptr<X11WatchedWindows> m_watched;
    Focus m_focus;
    bool m_refreshScheduled = false;
    std::optional<FocusTarget> m_activation; ///< Whose element still waits for the focus.
    QDeadlineTimer m_activationEnd;
};

} // namespace quorvel
