#pragma once

#include "support/raw/OwnerOptions.h"
#include "support/raw/RawDisplay.h"

#include <chrono>
#include <functional>
#include <list>
#include <map>

namespace quorvel::raw {

/// Owns a selection in the way that its options ask for.
class Owner {
public:
    explicit Owner(OwnerOptions options);

    /// Serves until SIGTERM or the time to exit.
    void run();

private:
    using Clock = std::chrono::steady_clock;
    struct Outgoing {
        xcb_window_t requestor;
        xcb_atom_t property;
        xcb_atom_t type;
        std::string bytes;
        std::size_t sent = 0;
    };

    void after(std::chrono::milliseconds delay, std::function<void()> work);
    void runWhatIsDue();
    int millisecondsToNext() const;
    void handleSignal();

    void takeSelection();
    void copyNext(int number);
    void continueBurst(int number);
    void noteFetch();
    void clear();
    void handle(const xcb_generic_event_t& event);
    void answer(const xcb_selection_request_event_t& request);
    bool convert(xcb_window_t requestor, xcb_atom_t target, xcb_atom_t property);
    bool convertMultiple(xcb_window_t requestor, xcb_atom_t property);
    void sendTargets(xcb_window_t requestor, xcb_atom_t property);
    void send(xcb_window_t requestor, xcb_atom_t target, xcb_atom_t property,
              const std::string& bytes);
    void sendNextPiece(const xcb_property_notify_event_t& event);

    OwnerOptions m_options;
    RawDisplay m_display;
    const xcb_atom_t m_selection;
    const int m_signals;
    xcb_timestamp_t m_since = XCB_CURRENT_TIME;
    Clock::time_point m_copiedAt;
    bool m_fetched = false;
    bool m_stopping = false;
    std::multimap<Clock::time_point, std::function<void()>> m_due;
    std::list<Outgoing> m_outgoing;
};

} // namespace quorvel::raw
