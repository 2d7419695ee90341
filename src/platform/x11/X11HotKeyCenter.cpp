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

std::array<quint16, 4> lockVariants(quint16 numLock) {
    return {0, XCB_MOD_MASK_LOCK, numLock, quint16(XCB_MOD_MASK_LOCK | numLock)};
}

} // namespace

X11HotKeyCenter::X11HotKeyCenter(xcb_window_t root)
    : m_connection(qtConnection())
    , m_root(root) {
    Q_ASSERT(m_connection);
    const xcb_query_extension_reply_t* xkb = xcb_get_extension_data(m_connection, &xcb_xkb_id);
    if (xkb && xkb->present)
        m_xkbEvent = xkb->first_event;
    m_tables = X11KeyTables::read(m_connection);
    qGuiApp->installNativeEventFilter(this);
}

X11HotKeyCenter::~X11HotKeyCenter() {
    qGuiApp->removeNativeEventFilter(this);
    for (const HotKey& hotKey : qAsConst(m_hotKeys))
        ungrab(hotKey);
    roundTrip();
}

std::optional<KeyPosition> X11HotKeyCenter::positionFor(QChar character) const {
    const auto key = m_tables ? m_tables->keyFor(character) : std::nullopt;
    return key ? key : usKeyFor(character);
}

KeyPosition X11HotKeyCenter::numberRowPosition(int index) const {
    Q_ASSERT(index >= 0 && index <= 9);
    return firstNumberKey + KeyPosition(index);
}

HotKeyRegistration X11HotKeyCenter::registerHotKey(KeyPosition position, Modifiers modifiers,
                                                   quint32 id) {
    const auto mask = m_tables ? m_tables->maskFor(modifiers) : std::nullopt;
    if (!mask || position > 0xff)
        return {0, XCB_VALUE};
    const HotKey hotKey = {id, xcb_keycode_t(position), *mask, m_tables->numLockMask()};
    // The server lets one client grab twice, and the first to let go would end both.
    const bool ours = find(hotKey.key, hotKey.modifiers) != 0;
    const int status = ours ? int(XCB_ACCESS) : grab(hotKey);
    if (status != 0)
        return {0, status};
    m_hotKeys.insert(++m_lastReference, hotKey);
    return {m_lastReference, 0};
}

void X11HotKeyCenter::unregisterHotKey(HotKeyReference reference) {
    const auto hotKey = m_hotKeys.constFind(reference);
    if (hotKey == m_hotKeys.cend())
        return;
    ungrab(*hotKey);
    roundTrip();
    m_hotKeys.erase(hotKey);
}

int X11HotKeyCenter::grab(const HotKey& hotKey) {
    QList<xcb_void_cookie_t> cookies;
    for (const quint16 locks : lockVariants(hotKey.numLock))
        cookies.append(xcb_grab_key_checked(m_connection, 0, m_root, hotKey.modifiers | locks,
                                            hotKey.key, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
    int status = 0;
    for (const xcb_void_cookie_t cookie : cookies) {
        const XcbOwned<xcb_generic_error_t> error(xcb_request_check(m_connection, cookie));
        if (error && status == 0)
            status = error->error_code;
    }
    if (status != 0) {
        ungrab(hotKey);
        roundTrip();
    }
    return status;
}

void X11HotKeyCenter::ungrab(const HotKey& hotKey) {
    for (const quint16 locks : lockVariants(hotKey.numLock))
        xcb_ungrab_key(m_connection, hotKey.key, m_root, hotKey.modifiers | locks);
}

HotKeyReference X11HotKeyCenter::find(xcb_keycode_t key, quint16 modifiers) const {
    for (auto hotKey = m_hotKeys.cbegin(); hotKey != m_hotKeys.cend(); ++hotKey)
        if (hotKey->isFor(key, modifiers))
            return hotKey.key();
    return 0;
}

std::optional<xcb_keycode_t> X11HotKeyCenter::heldKey() const {
    return m_held ? std::optional(m_held->key) : std::nullopt;
}

void X11HotKeyCenter::standAside(xcb_keycode_t key, quint16 modifiers) {
    for (const HotKey& hotKey : qAsConst(m_hotKeys))
        if (hotKey.isFor(key, modifiers)) {
            ungrab(hotKey);
            m_aside.append(hotKey);
        }
    roundTrip();
}

void X11HotKeyCenter::standBack() {
    // Whoever posted keys has released it, and the server tells us only later.
    if (m_held)
        m_forced = std::exchange(m_held, std::nullopt);
    for (const HotKey& hotKey : qAsConst(m_aside))
        if (const int status = grab(hotKey); status != 0)
            logLine(u"[Quorvel HotKey] lost id=%1 status=%2"_qs.arg(hotKey.id).arg(status));
    m_aside.clear();
}

void X11HotKeyCenter::roundTrip() {
    const XcbOwned<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
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
    const HotKeyReference reference =
        find(event.detail, quint16(event.state & modifierBits & ~locks));
    if (reference == 0)
        return false;
    const bool repetition = isRepetition(event);
    m_held = {event.detail, event.time};
    if (repetition && m_forced)
        m_forced->time = event.time;
    if (!repetition)
        answer(reference);
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

void X11HotKeyCenter::answer(HotKeyReference reference) {
    // From the loop: who answers may open a menu, and an event filter must not wait for that.
    const auto emitPressed = [this, reference] {
        if (m_hotKeys.contains(reference))
            emit pressed(m_hotKeys.value(reference).id);
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
    const bool same = m_tables && m_tables->hasSamePositions(*tables);
    m_tables = std::move(tables);
    if (!same)
        emit keyboardChanged();
}

} // namespace quorvel
