#include "support/raw/RawDisplay.h"

#include <array>
#include <cstdint>
#include <cstdio>

#include <poll.h>

namespace quorvel::raw {

RawDisplay::RawDisplay()
    : m_connection(xcb_connect(nullptr, nullptr))
    , m_window(0) {
    if (xcb_connection_has_error(m_connection) != 0)
        fail("the display cannot be reached");
    m_window = xcb_generate_id(m_connection);
    const auto* screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data;
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(m_connection, 0, m_window, screen->root, -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK,
                      &events);
}

RawDisplay::~RawDisplay() {
    xcb_disconnect(m_connection);
}

xcb_atom_t RawDisplay::atom(const std::string& name) {
    xcb_atom_t& known = m_atoms[name];
    if (known != XCB_ATOM_NONE)
        return known;
    const auto cookie =
        xcb_intern_atom(m_connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const Owned<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(m_connection, cookie, nullptr));
    if (!reply)
        fail("no atom for " + name);
    return known = reply->atom;
}

std::string RawDisplay::name(xcb_atom_t atom) {
    std::string& known = m_names[atom];
    if (known.empty())
        known = askForName(atom);
    return known;
}

std::string RawDisplay::askForName(xcb_atom_t atom) {
    const Owned<xcb_get_atom_name_reply_t> reply(
        xcb_get_atom_name_reply(m_connection, xcb_get_atom_name(m_connection, atom), nullptr));
    if (!reply)
        return std::to_string(atom);
    return {xcb_get_atom_name_name(reply.get()),
            static_cast<std::size_t>(xcb_get_atom_name_name_length(reply.get()))};
}

xcb_timestamp_t RawDisplay::serverTime() {
    const xcb_atom_t property = atom("RAW_TIME");
    xcb_change_property(m_connection, XCB_PROP_MODE_APPEND, m_window, property, XCB_ATOM_INTEGER,
                        32, 0, nullptr);
    xcb_flush(m_connection);
    while (Event event{xcb_wait_for_event(m_connection)}) {
        const auto& changed = reinterpret_cast<const xcb_property_notify_event_t&>(*event);
        if ((event->response_type & 0x7f) == XCB_PROPERTY_NOTIFY && changed.window == m_window &&
            changed.atom == property)
            return changed.time;
        m_kept.push_back(std::move(event));
    }
    fail("the display has gone");
}

Event RawDisplay::nextEvent() {
    if (m_kept.empty()) {
        Event event{xcb_poll_for_event(m_connection)};
        if (!event && xcb_connection_has_error(m_connection) != 0)
            fail("the display has gone");
        return event;
    }
    Event event = std::move(m_kept.front());
    m_kept.pop_front();
    return event;
}

bool RawDisplay::wait(int milliseconds, int fd) {
    xcb_flush(m_connection);
    // Waiting for a reply may have brought events along; the descriptor knows nothing of these.
    while (Event event{xcb_poll_for_queued_event(m_connection)})
        m_kept.push_back(std::move(event));
    if (!m_kept.empty())
        milliseconds = 0;
    std::array<pollfd, 2> sources{{
        {xcb_get_file_descriptor(m_connection), POLLIN, 0},
        {fd, POLLIN, 0},
    }};
    poll(sources.data(), sources.size(), milliseconds);
    return (sources[1].revents & POLLIN) != 0;
}

void say(const std::string& line) {
    std::fwrite(line.data(), 1, line.size(), stdout);
    std::fputc('\n', stdout);
    std::fflush(stdout);
}

void fail(const std::string& message) {
    std::fprintf(stderr, "%s\n", message.c_str());
    std::exit(EXIT_FAILURE);
}

} // namespace quorvel::raw
