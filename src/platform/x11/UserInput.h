#pragma once

#include <xcb/xcb.h>

#include <chrono>

namespace quorvel {

/// How long ago the user pressed a key or a button, or moved the pointer; zero when the display
/// cannot tell.
std::chrono::milliseconds timeSinceUserInput(xcb_connection_t* connection);

} // namespace quorvel
