#include "support/raw/Reader.h"

#include "support/raw/Options.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace quorvel::raw {

const char* const readerUsage = R"(Usage: quorvel_raw_reader [OPTION...] TARGET...
Asks for targets of a selection and prints, for each, one line
    TARGET received TYPE FORMAT SIZE [INCR]    or    TARGET refused    or    TARGET timeout
and after a "received" line the bytes and a line end. Atoms and numbers are printed in words,
SIZE then counts these.
  --selection NAME   CLIPBOARD unless told
  --time T           time stamp of the requests (the server's present time)
  --multiple         all targets in one MULTIPLE request
  --timeout MS       5000
  --print-time       prints the server's present time and ends
)";

namespace {

constexpr const char* multipleProperty = "RAW_MULTIPLE";

const OptionTable<ReaderOptions>& table() {
    static const OptionTable<ReaderOptions> known{
        .flags = {{"--multiple", [](auto& o, const auto&) { o.multiple = true; }}},
        .withValue =
            {
                {"--selection", [](auto& o, const auto& v) { o.selection = v; }},
                {"--time",
                 [](auto& o, const auto& v) { o.time = static_cast<xcb_timestamp_t>(number(v)); }},
                {"--timeout",
                 [](auto& o, const auto& v) { o.patience = std::chrono::milliseconds(number(v)); }},
            },
        .other =
            [](auto& o, const auto& word) {
                if (word.starts_with("--"))
                    fail(readerUsage);
                o.targets.push_back(word);
            },
    };
    return known;
}

} // namespace

ReaderOptions readerOptions(const std::vector<std::string>& arguments) {
    const ReaderOptions options = readOptions(arguments, table());
    if (options.targets.empty())
        fail(readerUsage);
    return options;
}

Reader::Reader(ReaderOptions options)
    : m_options(std::move(options)) {
    for (const std::string& target : m_options.targets)
        m_requests.push_back(
            {target, m_display.atom("RAW_PROPERTY_" + std::to_string(m_requests.size()))});
}

bool Reader::run() {
    ask();
    collect();
    bool complete = true;
    for (Request& request : m_requests) {
        print(request);
        complete = complete && request.state != State::timedOut;
    }
    return complete;
}

void Reader::ask() {
    const xcb_timestamp_t time = m_options.time ? *m_options.time : m_display.serverTime();
    if (m_options.multiple)
        return askForAllAtOnce(time);
    for (const Request& request : m_requests)
        xcb_convert_selection(m_display.connection(), m_display.window(),
                              m_display.atom(m_options.selection), m_display.atom(request.target),
                              request.property, time);
}

void Reader::askForAllAtOnce(xcb_timestamp_t time) {
    std::vector<xcb_atom_t> pairs;
    for (const Request& request : m_requests) {
        pairs.push_back(m_display.atom(request.target));
        pairs.push_back(request.property);
    }
    xcb_change_property(m_display.connection(), XCB_PROP_MODE_REPLACE, m_display.window(),
                        m_display.atom(multipleProperty), m_display.atom("ATOM_PAIR"), 32,
                        static_cast<std::uint32_t>(pairs.size()), pairs.data());
    xcb_convert_selection(m_display.connection(), m_display.window(),
                          m_display.atom(m_options.selection), m_display.atom("MULTIPLE"),
                          m_display.atom(multipleProperty), time);
}

void Reader::collect() {
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + m_options.patience;
    while (!isDone()) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now());
        if (left.count() <= 0)
            break;
        m_display.wait(static_cast<int>(left.count()));
        while (const Event event = m_display.nextEvent())
            handle(*event);
    }
    for (Request& request : m_requests)
        if (request.state == State::waiting || request.state == State::incremental)
            request.state = State::timedOut;
}

bool Reader::isDone() const {
    return std::none_of(m_requests.begin(), m_requests.end(), [](const Request& request) {
        return request.state == State::waiting || request.state == State::incremental;
    });
}

void Reader::handle(const xcb_generic_event_t& event) {
    const int type = event.response_type & 0x7f;
    if (type == XCB_SELECTION_NOTIFY)
        return notified(reinterpret_cast<const xcb_selection_notify_event_t&>(event));
    if (type != XCB_PROPERTY_NOTIFY)
        return;
    const auto& changed = reinterpret_cast<const xcb_property_notify_event_t&>(event);
    for (Request& request : m_requests)
        if (request.state == State::incremental && request.property == changed.atom &&
            changed.state == XCB_PROPERTY_NEW_VALUE)
            takePiece(request);
}

void Reader::notified(const xcb_selection_notify_event_t& event) {
    if (event.target == m_display.atom("MULTIPLE")) {
        if (event.property != XCB_ATOM_NONE)
            return multipleAnswered();
        for (Request& request : m_requests)
            request.state = State::refused;
        return;
    }
    for (Request& request : m_requests) {
        if (m_display.atom(request.target) != event.target || request.state != State::waiting)
            continue;
        if (event.property == XCB_ATOM_NONE)
            request.state = State::refused;
        else
            takeFirst(request);
    }
}

void Reader::multipleAnswered() {
    const auto reply = takeProperty(m_display.atom(multipleProperty));
    const auto* pairs = static_cast<const xcb_atom_t*>(xcb_get_property_value(reply.get()));
    for (std::size_t i = 0; i < m_requests.size() && 2 * i + 1 < reply->value_len; ++i) {
        if (pairs[2 * i + 1] == XCB_ATOM_NONE)
            m_requests[i].state = State::refused;
        else
            takeFirst(m_requests[i]);
    }
}

Owned<xcb_get_property_reply_t> Reader::takeProperty(xcb_atom_t property) {
    constexpr std::uint32_t everything = UINT32_MAX / 4;
    Owned<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(m_display.connection(),
                               xcb_get_property(m_display.connection(), 1, m_display.window(),
                                                property, XCB_GET_PROPERTY_TYPE_ANY, 0, everything),
                               nullptr));
    if (!reply)
        fail("the display has gone");
    return reply;
}

void Reader::takeFirst(Request& request) {
    const auto reply = takeProperty(request.property);
    request.type = reply->type;
    request.format = reply->format;
    request.inPieces = reply->type == m_display.atom("INCR");
    request.state = request.inPieces ? State::incremental : State::received;
    if (!request.inPieces)
        request.bytes.assign(static_cast<const char*>(xcb_get_property_value(reply.get())),
                             static_cast<std::size_t>(xcb_get_property_value_length(reply.get())));
}

void Reader::takePiece(Request& request) {
    const auto reply = takeProperty(request.property);
    if (reply->type == XCB_ATOM_NONE)
        return; // this notice was for what the previous look has taken already
    const auto size = static_cast<std::size_t>(xcb_get_property_value_length(reply.get()));
    if (size == 0) {
        request.state = State::received;
        return;
    }
    request.type = reply->type;
    request.format = reply->format;
    request.bytes.append(static_cast<const char*>(xcb_get_property_value(reply.get())), size);
}

std::string Reader::readable(const Request& request) {
    if (request.format != 32)
        return request.bytes;
    std::vector<std::uint32_t> words(request.bytes.size() / sizeof(std::uint32_t));
    std::memcpy(words.data(), request.bytes.data(), words.size() * sizeof(std::uint32_t));
    std::string text;
    for (const std::uint32_t word : words) {
        text += text.empty() ? "" : " ";
        text += request.type == XCB_ATOM_ATOM ? m_display.name(word) : std::to_string(word);
    }
    return text;
}

void Reader::print(const Request& request) {
    if (request.state != State::received)
        return say(request.target + (request.state == State::refused ? " refused" : " timeout"));
    const std::string content = readable(request);
    const char* pieces = request.inPieces ? " INCR" : "";
    say(request.target + " received " + m_display.name(request.type) + ' ' +
        std::to_string(request.format) + ' ' + std::to_string(content.size()) + pieces);
    say(content);
}

} // namespace quorvel::raw
