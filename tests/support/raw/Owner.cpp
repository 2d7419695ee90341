#include "support/raw/Owner.h"

#include <algorithm>
#include <csignal>
#include <cstdint>

#include <sys/signalfd.h>
#include <unistd.h>

namespace quorvel::raw {

namespace {

constexpr std::size_t largestWholeProperty = 256 * 1024;
constexpr auto fetchPatience = std::chrono::seconds(2);
constexpr std::size_t usualPiece = 64 * 1024;

int descriptorForSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGUSR1);
    sigaddset(&signals, SIGTERM);
    sigprocmask(SIG_BLOCK, &signals, nullptr);
    return signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK);
}

template <typename T>
const T& as(const xcb_generic_event_t& event) {
    return reinterpret_cast<const T&>(event);
}

} // namespace

Owner::Owner(OwnerOptions options)
    : m_options(std::move(options))
    , m_selection(m_display.atom(m_options.selection))
    , m_signals(descriptorForSignals()) {}

void Owner::run() {
    if (m_options.burst > 0)
        copyNext(1);
    else
        takeSelection();
    say("ready");
    if (m_options.clearAfter)
        after(*m_options.clearAfter, [this] { clear(); });
    if (m_options.exitAfter)
        after(*m_options.exitAfter, [this] { m_stopping = true; });
    while (!m_stopping) {
        while (const Event event = m_display.nextEvent())
            handle(*event);
        runWhatIsDue();
        if (!m_stopping && m_display.wait(millisecondsToNext(), m_signals))
            handleSignal();
    }
}

void Owner::after(std::chrono::milliseconds delay, std::function<void()> work) {
    m_due.emplace(Clock::now() + delay, std::move(work));
}

void Owner::runWhatIsDue() {
    while (!m_due.empty() && m_due.begin()->first <= Clock::now()) {
        const auto work = std::move(m_due.begin()->second);
        m_due.erase(m_due.begin());
        work();
    }
}

int Owner::millisecondsToNext() const {
    if (m_due.empty())
        return -1;
    const auto left =
        std::chrono::ceil<std::chrono::milliseconds>(m_due.begin()->first - Clock::now());
    return static_cast<int>(std::max<std::int64_t>(left.count(), 0));
}

void Owner::handleSignal() {
    signalfd_siginfo info{};
    if (read(m_signals, &info, sizeof info) != sizeof info)
        return;
    if (info.ssi_signo == SIGUSR1)
        clear();
    else
        m_stopping = true;
}

void Owner::takeSelection() {
    m_since = m_display.serverTime();
    xcb_set_selection_owner(m_display.connection(), m_display.window(), m_selection, m_since);
    const Owned<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(
        m_display.connection(), xcb_get_selection_owner(m_display.connection(), m_selection),
        nullptr));
    if (!reply || reply->owner != m_display.window())
        fail("did not get the selection");
}

void Owner::copyNext(int number) {
    const std::string text = m_options.burstText + ' ' + std::to_string(number);
    std::erase_if(m_options.offers, [](const auto& o) { return o.type == "UTF8_STRING"; });
    m_options.offers.push_back({"UTF8_STRING", text});
    m_fetched = false;
    m_copiedAt = Clock::now();
    takeSelection();
    say("copied " + text);
    if (number < m_options.burst)
        after(m_options.burstInterval, [this, number] { continueBurst(number + 1); });
}

void Owner::continueBurst(int number) {
    if (m_options.awaitFetch && !m_fetched && Clock::now() - m_copiedAt < fetchPatience)
        after(std::chrono::milliseconds(1), [this, number] { continueBurst(number); });
    else
        copyNext(number);
}

void Owner::noteFetch() {
    if (m_fetched || m_options.burst == 0)
        return;
    m_fetched = true;
    const auto taken =
        std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - m_copiedAt);
    say("fetched " + std::to_string(taken.count()));
}

void Owner::clear() {
    xcb_set_selection_owner(m_display.connection(), XCB_WINDOW_NONE, m_selection,
                            m_display.serverTime());
    xcb_flush(m_display.connection());
    say("cleared");
}

void Owner::handle(const xcb_generic_event_t& event) {
    switch (event.response_type & 0x7f) {
    case XCB_SELECTION_REQUEST: {
        const auto request = as<xcb_selection_request_event_t>(event);
        say("request " + m_display.name(request.target) + ' ' + std::to_string(request.time));
        if (m_options.answering == Answering::nothing ||
            m_display.name(request.target) == m_options.withheld)
            return;
        if (m_options.delay.count() > 0)
            after(m_options.delay, [this, request] { answer(request); });
        else
            answer(request);
        break;
    }
    case XCB_SELECTION_CLEAR:
        say("lost");
        break;
    case XCB_PROPERTY_NOTIFY:
        sendNextPiece(as<xcb_property_notify_event_t>(event));
        break;
    default:
        break;
    }
}

void Owner::answer(const xcb_selection_request_event_t& request) {
    const bool isTargets = request.target == m_display.atom("TARGETS");
    if (m_options.answering == Answering::targetsOnly && !isTargets)
        return;
    xcb_selection_notify_event_t notice{};
    notice.response_type = XCB_SELECTION_NOTIFY;
    notice.time = request.time;
    notice.requestor = request.requestor;
    notice.selection = request.selection;
    notice.target = request.target;
    if (convert(request.requestor, request.target, request.property))
        notice.property = request.property;
    xcb_send_event(m_display.connection(), 0, request.requestor, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char*>(&notice));
    xcb_flush(m_display.connection());
}

bool Owner::convert(xcb_window_t requestor, xcb_atom_t target, xcb_atom_t property) {
    if (target == m_display.atom("TARGETS")) {
        sendTargets(requestor, property);
        return true;
    }
    if (target == m_display.atom("TIMESTAMP")) {
        xcb_change_property(m_display.connection(), XCB_PROP_MODE_REPLACE, requestor, property,
                            XCB_ATOM_INTEGER, 32, 1, &m_since);
        return true;
    }
    if (target == m_display.atom("MULTIPLE"))
        return convertMultiple(requestor, property);
    const auto offer =
        std::find_if(m_options.offers.begin(), m_options.offers.end(),
                     [&](const auto& o) { return m_display.atom(o.type) == target; });
    if (offer == m_options.offers.end())
        return false;
    send(requestor, target, property, offer->bytes);
    if (offer->type == "UTF8_STRING")
        noteFetch();
    return true;
}

bool Owner::convertMultiple(xcb_window_t requestor, xcb_atom_t property) {
    constexpr std::uint32_t mostWords = 1024;
    const Owned<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(m_display.connection(),
                               xcb_get_property(m_display.connection(), 0, requestor, property,
                                                XCB_GET_PROPERTY_TYPE_ANY, 0, mostWords),
                               nullptr));
    if (!reply || reply->format != 32)
        return false;
    auto* pairs = static_cast<xcb_atom_t*>(xcb_get_property_value(reply.get()));
    for (std::uint32_t i = 0; i + 1 < reply->value_len; i += 2)
        if (!convert(requestor, pairs[i], pairs[i + 1]))
            pairs[i + 1] = XCB_ATOM_NONE;
    xcb_change_property(m_display.connection(), XCB_PROP_MODE_REPLACE, requestor, property,
                        reply->type, 32, reply->value_len, pairs);
    return true;
}

void Owner::sendTargets(xcb_window_t requestor, xcb_atom_t property) {
    std::vector<xcb_atom_t> targets{m_display.atom("TARGETS"), m_display.atom("TIMESTAMP"),
                                    m_display.atom("MULTIPLE")};
    for (const OfferedType& offer : m_options.offers)
        targets.push_back(m_display.atom(offer.type));
    xcb_change_property(m_display.connection(), XCB_PROP_MODE_REPLACE, requestor, property,
                        XCB_ATOM_ATOM, 32, static_cast<std::uint32_t>(targets.size()),
                        targets.data());
}

void Owner::send(xcb_window_t requestor, xcb_atom_t target, xcb_atom_t property,
                 const std::string& bytes) {
    if (!m_options.incremental && bytes.size() <= largestWholeProperty) {
        xcb_change_property(m_display.connection(), XCB_PROP_MODE_REPLACE, requestor, property,
                            target, 8, static_cast<std::uint32_t>(bytes.size()), bytes.data());
        return;
    }
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(m_display.connection(), requestor, XCB_CW_EVENT_MASK, &events);
    const auto size = static_cast<std::uint32_t>(bytes.size());
    m_outgoing.push_back({requestor, property, target, bytes});
    xcb_change_property(m_display.connection(), XCB_PROP_MODE_REPLACE, requestor, property,
                        m_display.atom("INCR"), 32, 1, &size);
}

void Owner::sendNextPiece(const xcb_property_notify_event_t& event) {
    if (event.state != XCB_PROPERTY_DELETE)
        return;
    const auto outgoing = std::find_if(m_outgoing.begin(), m_outgoing.end(), [&](const auto& o) {
        return o.requestor == event.window && o.property == event.atom;
    });
    if (outgoing == m_outgoing.end())
        return;
    if (m_options.stallAfter && outgoing->sent >= *m_options.stallAfter) {
        say("stalled");
        m_outgoing.erase(outgoing);
        return;
    }
    const std::size_t size = std::min(m_options.incremental.value_or(usualPiece),
                                      outgoing->bytes.size() - outgoing->sent);
    xcb_change_property(m_display.connection(), XCB_PROP_MODE_REPLACE, outgoing->requestor,
                        outgoing->property, outgoing->type, 8, static_cast<std::uint32_t>(size),
                        outgoing->bytes.data() + outgoing->sent);
    xcb_flush(m_display.connection());
    outgoing->sent += size;
    if (size == 0)
        m_outgoing.erase(outgoing); // the empty piece was the end
}

} // namespace quorvel::raw
