#pragma once

#include "platform/Workspace.h"
#include "platform/x11/X11Windows.h"

#include <optional>

namespace quorvel {

/// What a top window tells about its program.
struct WindowInfo {
    WindowClass windowClass;
    qint64 processIdentifier = 0; ///< 0 when unknown.
    ApplicationKind kind = ApplicationKind::ordinary;
};

/// Absent when the window is gone.
std::optional<WindowInfo> readWindowInfo(X11Connection& connection, xcb_window_t window);

/// Whether a process of this machine exists, whoever it belongs to.
bool isProcessAlive(qint64 processIdentifier);

} // namespace quorvel
