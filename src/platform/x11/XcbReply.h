#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <cstdlib>
#include <memory>

namespace quorvel {

/// Frees what xcb hands out.
struct XcbFree {
    void operator()(void* memory) const { std::free(memory); }
};

/// A reply, event or error that belongs to us.
template <typename T>
using XcbOwned = std::unique_ptr<T, XcbFree>;

struct XcbDisconnect {
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
};

using XcbConnection = std::unique_ptr<xcb_connection_t, XcbDisconnect>;

/// Whether time stamp `a` of the server is later than `b`; the 32-bit milliseconds wrap around.
constexpr bool isLater(xcb_timestamp_t a, xcb_timestamp_t b) {
    return static_cast<std::int32_t>(a - b) > 0;
}

/// The server gives each client a range of identifiers of its own: the bits that all its windows
/// have in common.
inline std::uint32_t clientOf(xcb_connection_t* connection, xcb_window_t window) {
    return window & ~xcb_get_setup(connection)->resource_id_mask;
}

inline bool isSameClient(xcb_connection_t* connection, xcb_window_t a, xcb_window_t b) {
    return clientOf(connection, a) == clientOf(connection, b);
}

} // namespace quorvel
