#include "platform/x11/SelectionServer.h"

#include "platform/desktop/ClipboardText.h"
#include "platform/x11/XcbReply.h"

#include <algorithm>

namespace quorvel {

namespace {

constexpr qsizetype pieceSize = 256 * 1024; // well below every server's request limit
constexpr auto outgoingPatience = std::chrono::seconds(10);

/// Earlier contents that are kept for late requests, and how large they may be together.
constexpr qsizetype mostEarlierOffers = 8;
constexpr qsizetype mostEarlierBytes = 32 * 1024 * 1024;

/// For how long after the keys a program may begin to ask for what was pasted.
constexpr auto readerPatience = std::chrono::seconds(3);

/// A program asks for types and content several times; after so long without a question it has all.
constexpr auto readerSilence = std::chrono::milliseconds(300);

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
    , m_selection(selection) {}

void SelectionServer::own(const ClipboardSnapshotItem& content, xcb_timestamp_t time) {
    m_offers.append({withTextAliases(content), time});
    trimOffers();
    if (m_readers.empty())
        announce();
}

void SelectionServer::giveUp(xcb_timestamp_t time) {
    m_offers.append({{}, time});
    if (m_readers.empty())
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
    for (const Reader& reader : std::exchange(m_readers, {}))
        if (reader.hasFetched)
            reader.fetched();
}

void SelectionServer::expectReader(xcb_window_t window, std::function<void()> fetched) {
    announce(); // This reader may look whether there is anything new.
    if (!isOwner())
        return;
    const quint32 client = clientOf(m_connection, window);
    m_readers.remove_if([client](const Reader& reader) {
        return reader.client == client && reader.hasFetched; // It has what it was told to paste.
    });
    m_readers.push_back({client, ownedSince(), Clock::now() + readerPatience, std::move(fetched)});
}

/// Of several pastes, a request that bears a time belongs to the last one that was offered by then;
/// without one they are served in their order.
SelectionServer::Reader* SelectionServer::readerFor(const xcb_selection_request_event_t& event) {
    endReaders();
    const quint32 client = clientOf(m_connection, event.requestor);
    Reader* found = nullptr;
    for (Reader& reader : m_readers) {
        const bool isTimed = event.time != XCB_CURRENT_TIME;
        if (reader.client != client || (isTimed && isLater(reader.offeredSince, event.time)))
            continue;
        found = &reader;
        if (!isTimed)
            break;
    }
    return found;
}

void SelectionServer::serve(Reader& reader, xcb_atom_t target) {
    if (target == m_atoms.atom(QStringLiteral("TARGETS")) ||
        target == m_atoms.atom(QStringLiteral("TIMESTAMP")))
        return;
    reader.end = Clock::now() + readerSilence;
    reader.hasFetched = true;
}

void SelectionServer::endReaders() {
    const auto now = Clock::now();
    for (const Reader& reader : m_readers)
        if (reader.hasFetched && reader.end <= now)
            reader.fetched();
    m_readers.remove_if([now](const Reader& reader) { return reader.end <= now; });
    if (m_readers.empty())
        announce();
}

const SelectionServer::Offer& SelectionServer::offerFor(const Reader* reader,
                                                        xcb_timestamp_t time) const {
    if (reader)
        for (const Offer& offer : m_offers)
            if (offer.since == reader->offeredSince)
                return offer;
    return offerAt(time);
}

xcb_timestamp_t SelectionServer::ownedSince() const {
    return m_offers.isEmpty() ? XCB_CURRENT_TIME : m_offers.last().since;
}

void SelectionServer::trimOffers() {
    qsizetype bytes = 0;
    qsizetype keep = 0;
    const auto isAwaited = [this](const Offer& offer) {
        return std::any_of(m_readers.begin(), m_readers.end(), [&](const Reader& reader) {
            return reader.offeredSince == offer.since;
        });
    };
    for (qsizetype i = m_offers.size() - 2; i >= 0 && keep < mostEarlierOffers; --i, ++keep) {
        bytes += sizeOf(m_offers.at(i).content);
        if (bytes > mostEarlierBytes && !isAwaited(m_offers.at(i)))
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

void SelectionServer::handle(const xcb_selection_request_event_t& event) {
    xcb_selection_notify_event_t answer{};
    answer.response_type = XCB_SELECTION_NOTIFY;
    answer.time = event.time;
    answer.requestor = event.requestor;
    answer.selection = event.selection;
    answer.target = event.target;
    // Very old clients name no property; the target's name serves then.
    const xcb_atom_t property = event.property == XCB_ATOM_NONE ? event.target : event.property;
    Reader* reader = readerFor(event);
    const bool done =
        isOwner() && convert(offerFor(reader, event.time), event.requestor, event.target, property);
    if (done && reader)
        serve(*reader, event.target);
    answer.property = done ? property : xcb_atom_t(XCB_ATOM_NONE);
    xcb_send_event(m_connection, 0, event.requestor, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char*>(&answer));
    xcb_flush(m_connection);
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
    for (const Reader& reader : m_readers)
        consider(reader.end);
    return next;
}

void SelectionServer::expire() {
    endReaders();
    const auto limit = Clock::now() - outgoingPatience;
    m_outgoing.remove_if([&](const Outgoing& o) { return o.lastSign <= limit; });
}

} // namespace quorvel
