#include "platform/x11/X11KeyGrabs.h"

#include "platform/x11/XcbReply.h"

#include <array>
#include <utility>

namespace quorvel {

namespace {

std::array<quint16, 4> lockVariants(quint16 numLock) {
    return {0, XCB_MOD_MASK_LOCK, numLock, quint16(XCB_MOD_MASK_LOCK | numLock)};
}

} // namespace

X11KeyGrabs::X11KeyGrabs(xcb_connection_t* connection, xcb_window_t root)
    : m_connection(connection)
    , m_root(root) {}

X11KeyGrabs::~X11KeyGrabs() {
    for (const Grab& grab : std::as_const(m_grabs))
        release(grab);
    roundTrip();
}

QList<X11KeyGrabs::Failure> X11KeyGrabs::add(const QList<Grab>& wanted) {
    QList<Grab> others;
    QList<Failure> failures;
    // The server lets one client grab twice, and the first to let go would end both.
    for (const Grab& grab : wanted)
        if (find(grab.key, grab.mask))
            failures.append({grab, XCB_ACCESS});
        else
            others.append(grab);
    return failures + take(others);
}

QList<X11KeyGrabs::Failure> X11KeyGrabs::take(const QList<Grab>& wanted) {
    QList<QList<xcb_void_cookie_t>> cookies; // All sent before the first answer is waited for.
    for (const Grab& grab : wanted)
        cookies.append(send(grab));
    QList<Failure> failures;
    for (qsizetype i = 0; i < wanted.size(); ++i)
        if (const int status = firstError(cookies.at(i)); status != 0)
            failures.append({wanted.at(i), status});
        else
            m_grabs.append(wanted.at(i));
    for (const Failure& failure : std::as_const(failures))
        release(failure.grab);
    roundTrip();
    return failures;
}

QList<xcb_void_cookie_t> X11KeyGrabs::send(const Grab& grab) {
    QList<xcb_void_cookie_t> cookies;
    for (const quint16 locks : lockVariants(grab.numLock))
        cookies.append(xcb_grab_key_checked(m_connection, 0, m_root, grab.mask | locks, grab.key,
                                            XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
    return cookies;
}

int X11KeyGrabs::firstError(const QList<xcb_void_cookie_t>& cookies) {
    int status = 0;
    for (const xcb_void_cookie_t cookie : cookies) {
        const XcbOwned<xcb_generic_error_t> error(xcb_request_check(m_connection, cookie));
        if (error && status == 0)
            status = error->error_code;
    }
    return status;
}

void X11KeyGrabs::remove(HotKeyReference reference) {
    const auto isIts = [reference](const Grab& grab) { return grab.reference == reference; };
    for (const Grab& grab : std::as_const(m_grabs))
        if (isIts(grab))
            release(grab);
    if (m_grabs.removeIf(isIts) > 0)
        roundTrip();
}

const X11KeyGrabs::Grab* X11KeyGrabs::find(xcb_keycode_t key, quint16 mask) const {
    for (const Grab& grab : m_grabs)
        if (grab.isFor(key, mask))
            return &grab;
    return nullptr;
}

void X11KeyGrabs::standAside(xcb_keycode_t key, quint16 mask) {
    if (const Grab* grab = find(key, mask)) {
        release(*grab);
        m_aside.append(*grab);
        m_grabs.removeIf([&](const Grab& other) { return other.isFor(key, mask); });
    }
    // Also for nothing of ours: a menu's grab may be on its way out on this connection.
    roundTrip();
}

QList<X11KeyGrabs::Failure> X11KeyGrabs::standBack() {
    const QList<Grab> aside = std::exchange(m_aside, {});
    return aside.isEmpty() ? QList<Failure>() : take(aside);
}

void X11KeyGrabs::release(const Grab& grab) {
    for (const quint16 locks : lockVariants(grab.numLock))
        xcb_ungrab_key(m_connection, grab.key, m_root, grab.mask | locks);
}

void X11KeyGrabs::roundTrip() {
    const XcbOwned<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
}

} // namespace quorvel
