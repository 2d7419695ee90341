#include "platform/x11/SelectionTransfer.h"

#include "platform/desktop/ClipboardText.h"
#include "platform/x11/XcbReply.h"

#include <QSet>

#include <algorithm>
#include <cstring>

namespace quorvel {

namespace {

const QString secretHint = QStringLiteral("x-kde-passwordManagerHint");
const QString tooLarge = QStringLiteral("larger than the cap");
const QString ownerSilent = QStringLiteral("its owner did not answer");
const QString ownerStalled = QStringLiteral("its owner stopped in the middle");
const QString nothingUsable = QStringLiteral("its owner gave no content");

/// Targets that are requests about the selection, not forms of its content.
bool isPseudoTarget(const QString& type) {
    static const QSet<QString> names{
        QStringLiteral("TARGETS"),         QStringLiteral("TIMESTAMP"),
        QStringLiteral("MULTIPLE"),        QStringLiteral("SAVE_TARGETS"),
        QStringLiteral("DELETE"),          QStringLiteral("INSERT_SELECTION"),
        QStringLiteral("INSERT_PROPERTY"), QStringLiteral("CLIENT_WINDOW"),
        QStringLiteral("ATOM_PAIR"),       QStringLiteral("LENGTH"),
    };
    return names.contains(type);
}

QList<xcb_atom_t> atomsIn(const QByteArray& bytes) {
    QList<xcb_atom_t> atoms(bytes.size() / qsizetype(sizeof(xcb_atom_t)));
    std::memcpy(atoms.data(), bytes.constData(), size_t(atoms.size()) * sizeof(xcb_atom_t));
    return atoms;
}

} // namespace

SelectionTransfer::SelectionTransfer(xcb_connection_t* connection, AtomTable& atoms,
                                     xcb_window_t root, xcb_atom_t selection, xcb_timestamp_t time,
                                     const TransferLimits& limits)
    : m_connection(connection)
    , m_atoms(atoms)
    , m_selection(selection)
    , m_time(time)
    , m_limits(limits)
    , m_requestor(xcb_generate_id(connection)) {
    const uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(m_connection, 0, m_requestor, root, -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK,
                      &events);
    request(m_atoms.atom(QStringLiteral("TARGETS")));
}

SelectionTransfer::~SelectionTransfer() {
    xcb_destroy_window(m_connection, m_requestor);
    xcb_flush(m_connection);
}

void SelectionTransfer::request(xcb_atom_t target) {
    // A property of its own for each answer: one that comes late cannot be taken for another.
    m_property = m_atoms.atom(QStringLiteral("QUORVEL_TRANSFER_%1").arg(m_propertyNumber++));
    xcb_convert_selection(m_connection, m_requestor, m_selection, target, m_property, m_time);
    xcb_flush(m_connection);
}

void SelectionTransfer::handle(const xcb_selection_notify_event_t& event) {
    if (m_finished || m_incremental)
        return;
    if (event.property != XCB_ATOM_NONE && event.property != m_property)
        return;
    m_lastSign = Clock::now();
    if (event.property == XCB_ATOM_NONE)
        return received(std::nullopt);
    Property property = takeProperty(m_awaitingTypes ? m_limits.mostBytesPerType : bytesLeft());
    if (property.tooLarge)
        return refuseAsTooLarge();
    if (property.type == m_atoms.atom(QStringLiteral("INCR")))
        return startIncremental(property.data);
    received(std::move(property.data));
}

SelectionTransfer::Property SelectionTransfer::takeProperty(qsizetype mostBytes) {
    const auto cookie = xcb_get_property(m_connection, 1, m_requestor, m_property,
                                         XCB_GET_PROPERTY_TYPE_ANY, 0, uint32_t(mostBytes / 4 + 1));
    const XcbOwned<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(m_connection, cookie, nullptr));
    if (!reply)
        return {};
    const qsizetype length = xcb_get_property_value_length(reply.get());
    if (reply->bytes_after > 0 || length > mostBytes) {
        m_droppedBytes += length;
        return {.tooLarge = true};
    }
    const char* value = static_cast<const char*>(xcb_get_property_value(reply.get()));
    return {QByteArray(value, length), reply->type};
}

void SelectionTransfer::startIncremental(const QByteArray& sizeHint) {
    uint32_t lowerBound = 0;
    if (sizeHint.size() >= qsizetype(sizeof lowerBound))
        std::memcpy(&lowerBound, sizeHint.constData(), sizeof lowerBound);
    if (qsizetype(lowerBound) > bytesLeft())
        return refuseAsTooLarge();
    m_incremental = true;
    m_incoming = {};
}

void SelectionTransfer::handle(const xcb_property_notify_event_t& event) {
    if (m_finished || !m_incremental || event.atom != m_property ||
        event.state != XCB_PROPERTY_NEW_VALUE)
        return;
    m_lastSign = Clock::now();
    appendChunk();
}

void SelectionTransfer::appendChunk() {
    const Property chunk = takeProperty(bytesLeft());
    if (chunk.tooLarge || m_incoming.size() + chunk.data.size() > bytesLeft()) {
        m_incremental = false;
        return refuseAsTooLarge();
    }
    if (!chunk.data.isEmpty()) {
        m_incoming.append(chunk.data);
        xcb_flush(m_connection);
        return;
    }
    m_incremental = false;
    m_incoming.squeeze();
    received(std::exchange(m_incoming, {}));
}

void SelectionTransfer::refuseAsTooLarge() {
    m_droppedBytes += std::exchange(m_incoming, {}).size();
    m_problem = tooLarge;
    received(std::nullopt);
}

void SelectionTransfer::received(std::optional<QByteArray> data) {
    if (m_awaitingTypes) {
        m_awaitingTypes = false;
        return receivedTypes(data.value_or(QByteArray()));
    }
    Slot& slot = m_slots[m_order.at(m_next)];
    slot.data = std::move(data);
    m_bytes += slot.data ? slot.data->size() : 0;
    if (slot.type == secretHint && slot.data && slot.data->startsWith("secret")) {
        m_secret = true;
        return finish({});
    }
    ++m_next;
    requestNext();
}

void SelectionTransfer::receivedTypes(const QByteArray& atoms) {
    const QList<xcb_atom_t> targets = atomsIn(atoms).mid(0, 4 * m_limits.mostTypes);
    QSet<QString> seen;
    for (const QString& name : m_atoms.names(targets)) {
        if (name.isEmpty() || isPseudoTarget(name) || seen.contains(name) ||
            m_slots.size() == m_limits.mostTypes)
            continue;
        seen.insert(name);
        m_slots.append({name, std::nullopt});
    }
    // Some plain owners answer no TARGETS but give their text.
    if (m_slots.isEmpty())
        m_slots.append({QStringLiteral("UTF8_STRING"), std::nullopt});
    planOrder();
    requestNext();
}

void SelectionTransfer::planOrder() {
    QList<QString> types;
    for (const Slot& slot : std::as_const(m_slots))
        types.append(slot.type);
    const auto plan = [this](qsizetype slot) {
        if (slot >= 0 && !m_order.contains(slot))
            m_order.append(slot);
    };
    plan(types.indexOf(secretHint));
    plan(bestTextType(types));
    plan(types.indexOf(pasteboardTypePng));
    for (qsizetype i = 0; i < types.size(); ++i)
        plan(i);
}

void SelectionTransfer::requestNext() {
    if (m_next == m_order.size())
        return finish(m_problem);
    request(m_atoms.atom(m_slots.at(m_order.at(m_next)).type));
}

qsizetype SelectionTransfer::bytesLeft() const {
    return std::min(m_limits.mostBytesPerType, m_limits.mostBytes - m_bytes);
}

SelectionTransfer::Clock::time_point SelectionTransfer::deadline() const {
    return std::min(m_lastSign + m_limits.stall, m_start + m_limits.total);
}

void SelectionTransfer::expire() {
    finish(m_awaitingTypes || (m_next == 0 && !m_incremental) ? ownerSilent : ownerStalled);
}

void SelectionTransfer::cutShort(const QString& reason) {
    finish(reason);
}

void SelectionTransfer::finish(const QString& problem) {
    m_finished = true;
    m_problem = problem;
    m_droppedBytes += std::exchange(m_incoming, {}).size();
}

TransferResult SelectionTransfer::takeResult() {
    TransferResult result{{}, m_problem, m_secret, m_droppedBytes};
    if (m_secret)
        return result;
    auto& contents = result.item.payloadByType;
    for (Slot& slot : m_slots) {
        if (!slot.data)
            continue;
        // A text comes under many names with the same bytes: keep them once.
        const auto same = std::find_if(contents.cbegin(), contents.cend(),
                                       [&](const auto& known) { return known.data == *slot.data; });
        const QByteArray data = same == contents.cend() ? *slot.data : same->data;
        contents.append({slot.type, data});
    }
    if (result.item.payloadByType.isEmpty() && result.problem.isEmpty())
        result.problem = nothingUsable;
    return result;
}

} // namespace quorvel
