#pragma once

#include <cstdlib>
#include <deque>
#include <map>
#include <memory>
#include <string>

#include <xcb/xcb.h>

namespace quorvel::raw {

struct FreeMemory {
    void operator()(void* memory) const { std::free(memory); }
};
template <typename T>
using Owned = std::unique_ptr<T, FreeMemory>;
using Event = Owned<xcb_generic_event_t>;

/// A plain connection to the display with one window, for programs that speak the selection
/// protocol by hand. Whatever goes wrong ends the program with a message.
class RawDisplay {
public:
    RawDisplay();
    ~RawDisplay();

    xcb_connection_t* connection() const { return m_connection; }
    xcb_window_t window() const { return m_window; }

    xcb_atom_t atom(const std::string& name);
    std::string name(xcb_atom_t atom);

    /// The server's present time. Other events that arrive meanwhile are kept for `nextEvent`.
    xcb_timestamp_t serverTime();

    /// What has arrived already; null when nothing has.
    Event nextEvent();

    /// Returns when an event may have arrived, when `fd` (if not negative) is readable or when the
    /// time is over; true when `fd` is readable. Endless with a negative time.
    bool wait(int milliseconds, int fd = -1);

private:
    std::string askForName(xcb_atom_t atom);

    xcb_connection_t* m_connection;
    xcb_window_t m_window;
    std::deque<Event> m_kept;
    std::map<std::string, xcb_atom_t> m_atoms;
    std::map<xcb_atom_t, std::string> m_names;
};

/// Writes one line at once, so that a watching test sees it.
void say(const std::string& line);

[[noreturn]] void fail(const std::string& message);

} // namespace quorvel::raw
