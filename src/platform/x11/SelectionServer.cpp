#include "platform/x11/SelectionServer.h"

#include "platform/desktop/ClipboardText.h"
#include "platform/x11/UserInput.h"
#include "platform/x11/XcbReply.h"

#include <algorithm>

namespace quorvel {

namespace {

constexpr qsizetype pieceSize = 256 * 1024; // well below every server's request limit
constexpr auto outgoingPatience = std::chrono::seconds(10);

/// Earlier contents that are kept for late requests, and how large they may be together.
constexpr qsizetype mostEarlierOffers = 8;
constexpr qsizetype mostEarlierBytes = 32 * 1024 * 1024;

qsizetype sizeOf(const ClipboardSnapshotItem& item) {
    qsizetype size = 0;
    for (const PasteboardRepresentation& representation : item.payloadByType)
        size += representation.data.size();
    return size;
}

} // namespace

SelectionServer::SelectionServer(xcb_connection_t* connection, AtomTable& atoms,
                                 xcb_window_t window, xcb_atom_t selection)
    : m_connection(connection)
    , m_atoms(atoms)
    , m_window(window)
    , m_selection(selection)
    , m_readers({&Clock::now, [connection] { return timeSinceUserInput(connection); }}) {}

void SelectionServer::own(const ClipboardSnapshotItem& content, xcb_timestamp_t time) {
    m_offers.append({withTextAliases(content), time});
    trimOffers();
    if (!m_readers.isAnyoneExpected())
        announce();
}

void SelectionServer::giveUp(xcb_timestamp_t time) {
    m_offers.append({{}, time});
    if (!m_readers.isAnyoneExpected())
        announce();
}

void SelectionServer::announce() {
    if (m_offers.isEmpty() || m_offers.last().isAnnounced)
        return;
    const bool isEmpty = m_offers.last().content.payloadByType.isEmpty();
    xcb_set_selection_owner(m_connection, isEmpty ? xcb_window_t(XCB_WINDOW_NONE) : m_window,
                            m_selection, m_offers.last().since);
    m_offers.last().isAnnounced = true;
    if (isEmpty)
        lost();
    xcb_flush(m_connection);
}

void SelectionServer::lost() {
    m_offers.clear();
    m_readers.endAll();
}

void SelectionServer::expectReader(xcb_window_t window, std::function<void()> fetched) {
    announce(); // This reader may look whether there is anything new.
    if (isOwner())
        m_readers.expect(clientOf(m_connection, window), ownedSince(), std::move(fetched));
}

void SelectionServer::endReaders() {
    m_readers.endDue();
    if (!m_readers.isAnyoneExpected())
        announce();
}

xcb_timestamp_t SelectionServer::ownedSince() const {
    return m_offers.isEmpty() ? XCB_CURRENT_TIME : m_offers.last().since;
}

void SelectionServer::trimOffers() {
    qsizetype bytes = 0;
    qsizetype keep = 0;
    for (qsizetype i = m_offers.size() - 2; i >= 0 && keep < mostEarlierOffers; --i, ++keep) {
        bytes += sizeOf(m_offers.at(i).content);
        if (bytes > mostEarlierBytes && !m_readers.isAwaited(m_offers.at(i).since))
            break;
    }
    m_offers.remove(0, m_offers.size() - 1 - keep);
}

/// What is not announced yet counts from the time of what is: nobody can know of a later one.
const SelectionServer::Offer& SelectionServer::offerAt(xcb_timestamp_t time) const {
    if (time == XCB_CURRENT_TIME)
        return m_offers.last();
    for (qsizetype i = m_offers.size() - 1; i >= 0; --i) {
        qsizetype known = i;
        while (known > 0 && !m_offers.at(known).isAnnounced)
            --known;
        if (!isLater(m_offers.at(known).since, time))
            return m_offers.at(i);
    }
    return m_offers.last();
}

/// Of two that were written within one tick of the server's clock, the later one is meant.
const SelectionServer::Offer& SelectionServer::offerSince(xcb_timestamp_t since) const {
    const auto found = std::find_if(m_offers.rbegin(), m_offers.rend(),
                                    [since](const Offer& offer) { return offer.since == since; });
    return found == m_offers.rend() ? m_offers.last() : *found;
}

void SelectionServer::handle(const xcb_selection_request_event_t& event) {
    xcb_selection_notify_event_t notice{};
    notice.response_type = XCB_SELECTION_NOTIFY;
    notice.time = event.time;
    notice.requestor = event.requestor;
    notice.selection = event.selection;
    notice.target = event.target;
    // Very old clients name no property; the target's name serves then.
    const xcb_atom_t property = event.property == XCB_ATOM_NONE ? event.target : event.property;
    endReaders();
    const bool done = isOwner() && answer(event, property);
    notice.property = done ? property : xcb_atom_t(XCB_ATOM_NONE);
    xcb_send_event(m_connection, 0, event.requestor, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char*>(&notice));
    xcb_flush(m_connection);
}

bool SelectionServer::answer(const xcb_selection_request_event_t& event, xcb_atom_t property) {
    const quint32 client = clientOf(m_connection, event.requestor);
    const SelectionReaders::Question question{event.target, isContent(event.target), event.time};
    const auto since = m_readers.offeredTo(client, question);
    const Offer& offer = since ? offerSince(*since) : offerAt(event.time);
    const bool done = convert(offer, event.requestor, event.target, property);
    if (done && since)
        m_readers.answered(client, *since, question);
    return done;
}

bool SelectionServer::isContent(xcb_atom_t target) {
    return target != m_atoms.atom(QStringLiteral("TARGETS")) &&
           target != m_atoms.atom(QStringLiteral("TIMESTAMP"));
}

bool SelectionServer::convert(const Offer& offer, xcb_window_t requestor, xcb_atom_t target,
                              xcb_atom_t property) {
    if (target == m_atoms.atom(QStringLiteral("TARGETS"))) {
        sendTargets(offer, requestor, property);
        return true;
    }
    if (target == m_atoms.atom(QStringLiteral("TIMESTAMP"))) {
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, requestor, property,
                            XCB_ATOM_INTEGER, 32, 1, &offer.since);
        return true;
    }
    if (target == m_atoms.atom(QStringLiteral("MULTIPLE")))
        return convertMultiple(offer, requestor, property);
    return convertContent(offer, requestor, target, property);
}

void SelectionServer::sendTargets(const Offer& offer, xcb_window_t requestor, xcb_atom_t property) {
    QList<xcb_atom_t> targets{
        m_atoms.atom(QStringLiteral("TARGETS")),
        m_atoms.atom(QStringLiteral("TIMESTAMP")),
        m_atoms.atom(QStringLiteral("MULTIPLE")),
    };
    for (const PasteboardRepresentation& representation : offer.content.payloadByType)
        targets.append(m_atoms.atom(representation.type));
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, requestor, property, XCB_ATOM_ATOM, 32,
                        uint32_t(targets.size()), targets.constData());
}

bool SelectionServer::convertContent(const Offer& offer, xcb_window_t requestor, xcb_atom_t target,
                                     xcb_atom_t property) {
    const QString type = m_atoms.names({target}).first();
    const auto& contents = offer.content.payloadByType;
    const auto found = std::find_if(contents.begin(), contents.end(),
                                    [&](const auto& content) { return content.type == type; });
    if (found == contents.end())
        return false;
    const xcb_atom_t answerType =
        type == QLatin1StringView("TEXT") ? m_atoms.atom(QStringLiteral("UTF8_STRING")) : target;
    if (found->data.size() > pieceSize)
        startOutgoing(requestor, property, answerType, found->data);
    else
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, requestor, property, answerType, 8,
                            uint32_t(found->data.size()), found->data.constData());
    return true;
}

bool SelectionServer::convertMultiple(const Offer& offer, xcb_window_t requestor,
                                      xcb_atom_t property) {
    constexpr uint32_t mostWords = 1024;
    const auto cookie = xcb_get_property(m_connection, 0, requestor, property,
                                         XCB_GET_PROPERTY_TYPE_ANY, 0, mostWords);
    const XcbOwned<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(m_connection, cookie, nullptr));
    if (!reply || reply->format != 32)
        return false;
    const auto* words = static_cast<const xcb_atom_t*>(xcb_get_property_value(reply.get()));
    QList<xcb_atom_t> pairs(words, words + reply->value_len / 2 * 2);
    for (qsizetype i = 0; i + 1 < pairs.size(); i += 2)
        if (pairs.at(i) == m_atoms.atom(QStringLiteral("MULTIPLE")) ||
            !convert(offer, requestor, pairs.at(i), pairs.at(i + 1)))
            pairs[i + 1] = XCB_ATOM_NONE;
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, requestor, property, reply->type, 32,
                        uint32_t(pairs.size()), pairs.constData());
    return true;
}

void SelectionServer::startOutgoing(xcb_window_t requestor, xcb_atom_t property, xcb_atom_t type,
                                    const QByteArray& data) {
    const uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(m_connection, requestor, XCB_CW_EVENT_MASK, &events);
    const auto size = uint32_t(data.size());
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, requestor, property,
                        m_atoms.atom(QStringLiteral("INCR")), 32, 1, &size);
    m_outgoing.remove_if([&](const Outgoing& old) {
        return old.requestor == requestor && old.property == property;
    });
    m_outgoing.push_back({requestor, property, type, data});
}

void SelectionServer::handle(const xcb_property_notify_event_t& event) {
    if (event.state != XCB_PROPERTY_DELETE)
        return;
    const auto found = std::find_if(m_outgoing.begin(), m_outgoing.end(), [&](const Outgoing& o) {
        return o.requestor == event.window && o.property == event.atom;
    });
    if (found == m_outgoing.end())
        return;
    const bool last = found->sent == found->data.size();
    sendPiece(*found);
    if (!last)
        return;
    const xcb_window_t requestor = found->requestor;
    m_outgoing.erase(found);
    stopWatching(requestor);
}

/// The piece after the last byte is empty and tells the requestor that this was all.
void SelectionServer::sendPiece(Outgoing& outgoing) {
    const qsizetype size = std::min(pieceSize, outgoing.data.size() - outgoing.sent);
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, outgoing.requestor, outgoing.property,
                        outgoing.type, 8, uint32_t(size),
                        outgoing.data.constData() + outgoing.sent);
    xcb_flush(m_connection);
    outgoing.sent += size;
    outgoing.lastSign = Clock::now();
}

void SelectionServer::stopWatching(xcb_window_t requestor) {
    const bool stillSending =
        std::any_of(m_outgoing.begin(), m_outgoing.end(),
                    [&](const Outgoing& o) { return o.requestor == requestor; });
    if (stillSending)
        return;
    const uint32_t events = XCB_EVENT_MASK_NO_EVENT;
    xcb_change_window_attributes(m_connection, requestor, XCB_CW_EVENT_MASK, &events);
    xcb_flush(m_connection);
}

void SelectionServer::forgetRequestor(xcb_window_t window) {
    m_outgoing.remove_if([&](const Outgoing& o) { return o.requestor == window; });
}

std::optional<SelectionServer::Clock::time_point> SelectionServer::deadline() const {
    std::optional<Clock::time_point> next;
    const auto consider = [&next](Clock::time_point point) {
        next = next ? std::min(*next, point) : point;
    };
    for (const Outgoing& outgoing : m_outgoing)
        consider(outgoing.lastSign + outgoingPatience);
    if (const auto end = m_readers.deadline())
        consider(*end);
    return next;
}

void SelectionServer::expire() {
    endReaders();
    const auto limit = Clock::now() - outgoingPatience;
    m_outgoing.remove_if([&](const Outgoing& o) { return o.lastSign <= limit; });
}

} // namespace quorvel
