#include "platform/x11/X11HotKeyCenter.h"

#include "foundation/Log.h"
#include "platform/x11/XcbReply.h"
#include "platform/x11/XkbEvents.h"

#include <QGuiApplication>

#include <utility>

namespace quorvel {

namespace {

constexpr KeyPosition firstNumberKey = 10;
constexpr quint16 modifierBits = 0xff; ///< The rest of an event's state is buttons and the group.

/// In the server's milliseconds. A held key repeats more often than this; so much later it was let
/// go without our seeing it.
constexpr xcb_timestamp_t longestRepeatGap = 2000;

/// A nested or remote server goes on repeating a key that we have released in the user's place:
/// faster than fingers are.
constexpr xcb_timestamp_t quickestFingers = 80;

xcb_connection_t* qtConnection() {
    auto* application = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return application ? application->connection() : nullptr;
}

/// Every choice out of these, but for none of them.
QList<Modifiers> choicesOf(Modifiers modifiers) {
    QList<Modifiers> choices;
    const quint32 all = modifiers.toInt();
    for (quint32 choice = all; choice != 0; choice = (choice - 1) & all)
        choices.append(Modifiers::fromInt(choice));
    return choices;
}

} // namespace

X11HotKeyCenter::X11HotKeyCenter(xcb_window_t root)
    : m_connection(qtConnection())
    , m_root(root)
    , m_grabs(m_connection, root) {
    Q_ASSERT(m_connection);
    const xcb_query_extension_reply_t* xkb = xcb_get_extension_data(m_connection, &xcb_xkb_id);
    if (xkb && xkb->present)
        m_xkbEvent = xkb->first_event;
    m_tables = X11KeyTables::read(m_connection);
    qGuiApp->installNativeEventFilter(this);
}

X11HotKeyCenter::~X11HotKeyCenter() {
    qGuiApp->removeNativeEventFilter(this);
}

std::optional<KeyPosition> X11HotKeyCenter::positionFor(QChar character) const {
    const auto key = m_tables ? m_tables->keyFor(character) : std::nullopt;
    return key ? key : usKeyFor(character);
}

std::optional<QChar> X11HotKeyCenter::characterAt(KeyPosition position) const {
    if (!m_tables)
        return std::nullopt;
    for (const QChar name : m_tables->plainCharacters(position))
        if (positionFor(name) == position)
            return name;
    return std::nullopt;
}

KeyPosition X11HotKeyCenter::numberRowPosition(int index) const {
    Q_ASSERT(index >= 0 && index <= 9);
    return firstNumberKey + KeyPosition(index);
}

HotKeyRegistration X11HotKeyCenter::registerHotKey(KeyPosition position, Modifiers modifiers,
                                                   quint32 id, Modifiers optionalModifiers) {
    using Grab = X11KeyGrabs::Grab;
    const auto mask = m_tables ? m_tables->maskFor(modifiers) : std::nullopt;
    if (!mask || position > 0xff)
        return {0, XCB_VALUE};
    const HotKeyReference reference = ++m_lastReference;
    const Grab required = {reference, xcb_keycode_t(position), *mask, m_tables->numLockMask(),
                           modifiers};
    if (const auto failures = m_grabs.add({required}); !failures.isEmpty())
        return {0, failures.first().status};
    noteMissed(m_grabs.add(grabsFor(required, optionalModifiers)), id);
    m_ids.insert(reference, id);
    return {reference, 0};
}

QList<X11KeyGrabs::Grab> X11HotKeyCenter::grabsFor(const X11KeyGrabs::Grab& required,
                                                   Modifiers optional) const {
    QList<X11KeyGrabs::Grab> grabs;
    for (const Modifiers choice : choicesOf(optional & ~required.modifiers))
        if (const auto mask = m_tables->maskFor(required.modifiers | choice))
            grabs.append({required.reference, required.key, *mask, required.numLock,
                          required.modifiers | choice});
    return grabs;
}

void X11HotKeyCenter::noteMissed(const QList<X11KeyGrabs::Failure>& failures, quint32 id) {
    for (const auto& [grab, status] : failures) {
        const quint32 combination = quint32(grab.key) << 16 | grab.mask;
        if (m_missed.contains(combination))
            continue;
        m_missed.insert(combination);
        logDetail(u"[Quorvel HotKey] id=%1 goes without modifiers=0x%2 status=%3"_qs.arg(id)
                      .arg(grab.modifiers.toInt(), 0, 16)
                      .arg(status));
    }
}

void X11HotKeyCenter::unregisterHotKey(HotKeyReference reference) {
    m_grabs.remove(reference);
    m_ids.remove(reference);
}

std::optional<xcb_keycode_t> X11HotKeyCenter::heldKey() const {
    return m_held ? std::optional(m_held->key) : std::nullopt;
}

void X11HotKeyCenter::standAside(xcb_keycode_t key, quint16 modifiers) {
    m_grabs.standAside(key, modifiers);
}

void X11HotKeyCenter::standBack() {
    // Whoever posted keys has released it, and the server tells us only later.
    if (m_held)
        m_forced = std::exchange(m_held, std::nullopt);
    for (const auto& [grab, status] : m_grabs.standBack())
        logLine(u"[Quorvel HotKey] lost id=%1 status=%2"_qs.arg(m_ids.value(grab.reference))
                    .arg(status));
}

bool X11HotKeyCenter::nativeEventFilter(const QByteArray& type, void* message, qintptr*) {
    if (type != "xcb_generic_event_t")
        return false;
    const auto& event = *static_cast<const xcb_generic_event_t*>(message);
    const int kind = event.response_type & 0x7f;
    if (kind == XCB_KEY_PRESS)
        return handlePress(reinterpret_cast<const xcb_key_press_event_t&>(event));
    if (kind == XCB_KEY_RELEASE)
        handleRelease(reinterpret_cast<const xcb_key_release_event_t&>(event));
    if (kind == XCB_MAPPING_NOTIFY || kind == m_xkbEvent)
        handleKeyboard(event);
    return false;
}

bool X11HotKeyCenter::handlePress(const xcb_key_press_event_t& event) {
    if (event.event != m_root || !m_tables)
        return false;
    const quint16 locks = m_tables->capsLockMask() | m_tables->numLockMask();
    const auto* grab = m_grabs.find(event.detail, quint16(event.state & modifierBits & ~locks));
    if (!grab)
        return false;
    const bool repetition = isRepetition(event);
    m_held = {event.detail, event.time};
    if (repetition && m_forced)
        m_forced->time = event.time;
    if (!repetition)
        answer(*grab);
    return true;
}

void X11HotKeyCenter::handleRelease(const xcb_key_release_event_t& event) {
    if (m_held && event.detail == m_held->key) {
        m_released = {event.detail, event.time};
        m_held.reset();
    }
}

bool X11HotKeyCenter::isRepetition(const xcb_key_press_event_t& event) const {
    const auto within = [&event](const std::optional<KeyTime>& before, xcb_timestamp_t span) {
        return before && before->key == event.detail && event.time - before->time < span;
    };
    // A repetition is a press alone, or a release and a press at the very same time.
    return within(m_held, longestRepeatGap) || within(m_released, 1) ||
           within(m_forced, quickestFingers);
}

void X11HotKeyCenter::answer(const X11KeyGrabs::Grab& grab) {
    // From the loop: who answers may open a menu, and an event filter must not wait for that.
    const auto emitPressed = [this, reference = grab.reference, modifiers = grab.modifiers] {
        if (m_ids.contains(reference))
            emit pressed(m_ids.value(reference), modifiers);
    };
    QMetaObject::invokeMethod(this, emitPressed, Qt::QueuedConnection);
}

void X11HotKeyCenter::handleKeyboard(const xcb_generic_event_t& event) {
    // All events of the extension share one number; the second byte tells them apart.
    const bool state = event.response_type == m_xkbEvent && event.pad0 == XCB_XKB_STATE_NOTIFY;
    const bool sameGroup =
        state && m_tables &&
        reinterpret_cast<const xcb_xkb_state_notify_event_t&>(event).group == m_tables->group();
    if (!sameGroup)
        scheduleKeyboardCheck();
}

void X11HotKeyCenter::scheduleKeyboardCheck() {
    if (m_checkScheduled)
        return;
    m_checkScheduled = true;
    QMetaObject::invokeMethod(this, &X11HotKeyCenter::checkKeyboard, Qt::QueuedConnection);
}

void X11HotKeyCenter::checkKeyboard() {
    m_checkScheduled = false;
    auto tables = X11KeyTables::read(m_connection);
    if (!tables)
        return;
    const bool sameModifiers = m_tables && m_tables->hasSameModifiers(*tables);
    const bool sameCharacters = m_tables && m_tables->hasSameCharacters(*tables);
    m_tables = std::move(tables);
    if (!sameModifiers)
        emit keyboardChanged(KeyboardChange::everything);
    else if (!sameCharacters)
        emit keyboardChanged(KeyboardChange::positions);
}

} // namespace quorvel
