#include "conformance/X11Outside.h"

#include "platform/x11/XkbEvents.h"
#include "support/WaitUntil.h"

#include <algorithm>
#include <stdexcept>

#include <xcb/xtest.h>

namespace quorvel {

namespace {

using namespace std::chrono_literals;

void expect(bool condition, const char* what) {
    if (!condition)
        throw std::runtime_error(what);
}

bool isModifier(xcb_keycode_t key) {
    return key == keyboard::control || key == keyboard::shift || key == keyboard::alt ||
           key == keyboard::super;
}

} // namespace

X11Outside::X11Outside(const QByteArray& display)
    : m_connection(display)
    , m_windows(m_connection) {
    m_hasWindowManager = !m_windows
                              .values(m_connection.root(),
                                      QStringLiteral("_NET_SUPPORTING_WM_CHECK"), XCB_ATOM_WINDOW)
                              .isEmpty();
    expect(waitUntil([this] { return isSettled(); }), "the desktop does not come to rest");
    QObject::connect(&m_connection, &X11Connection::eventArrived, &m_connection,
                     [this](const xcb_generic_event_t* event) {
                         if ((event->response_type & 0x7f) != XCB_KEY_PRESS)
                             return;
                         const auto* press = reinterpret_cast<const xcb_key_press_event_t*>(event);
                         if (!isModifier(press->detail))
                             m_keys.append({press->event, {press->detail, press->state}});
                     });
}

X11Outside::~X11Outside() {
    while (!m_pressed.isEmpty())
        release(m_pressed.first());
    for (const xcb_window_t window : std::as_const(m_open))
        xcb_destroy_window(m_connection.xcb(), window);
    // The next client gets our numbers: the window manager must have done with our windows.
    waitUntil([this] { return isSettled(); });
}

bool X11Outside::isSettled() {
    const QList<quint32> managed =
        m_windows.values(m_connection.root(), QStringLiteral("_NET_CLIENT_LIST"), XCB_ATOM_WINDOW);
    const bool anyOfOurs = std::any_of(m_open.cbegin(), m_open.cend(), [&](xcb_window_t window) {
        return managed.contains(window) || m_windows.exists(window);
    });
    // While nobody has the focus no hot key works.
    return !m_hasWindowManager || (!anyOfOurs && focused() != XCB_INPUT_FOCUS_NONE);
}

xcb_window_t X11Outside::create(xcb_window_t parent, quint16 width, quint16 height) {
    const xcb_window_t window = xcb_generate_id(m_connection.xcb());
    const quint32 events = XCB_EVENT_MASK_KEY_PRESS;
    xcb_create_window(m_connection.xcb(), XCB_COPY_FROM_PARENT, window, parent, 0, 0, width, height,
                      0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK,
                      &events);
    return window;
}

xcb_window_t X11Outside::open(const QByteArray& windowClass, const QByteArray& type) {
    const xcb_window_t window = create(m_connection.root(), 200, 100);
    m_open.append(window);
    const QByteArray text = windowClass.toLower() + '\0' + windowClass + '\0';
    xcb_change_property(m_connection.xcb(), XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_CLASS,
                        XCB_ATOM_STRING, 8, quint32(text.size()), text.constData());
    if (!type.isEmpty()) {
        const xcb_atom_t atom = m_connection.atom(QString::fromLatin1(type));
        xcb_change_property(m_connection.xcb(), XCB_PROP_MODE_REPLACE, window,
                            m_connection.atom(QStringLiteral("_NET_WM_WINDOW_TYPE")), XCB_ATOM_ATOM,
                            32, 1, &atom);
    }
    const auto isShown = [&] {
        // Asked for each time: a window manager that is just starting overlooks the first time.
        xcb_map_window(m_connection.xcb(), window);
        const auto cookie = xcb_get_window_attributes(m_connection.xcb(), window);
        const auto attributes = m_connection.reply(xcb_get_window_attributes_reply, cookie);
        return attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE;
    };
    expect(waitUntil(isShown), "the window was not shown");
    // A window manager gives it the focus a little later; after that it leaves the focus to us.
    if (m_hasWindowManager && type.isEmpty())
        expect(waitUntil([&] { return activeWindow() == window; }), "the window was not focused");
    return window;
}

xcb_window_t X11Outside::addElement(xcb_window_t window) {
    // Too small for the pointer: keys go to the element under it rather than to the focused one.
    const xcb_window_t element = create(window, 1, 1);
    xcb_map_window(m_connection.xcb(), element);
    settle();
    return element;
}

void X11Outside::close(xcb_window_t window) {
    xcb_destroy_window(m_connection.xcb(), window);
    settle();
}

void X11Outside::focus(xcb_window_t window) {
    const auto hasFocus = [&] {
        if (focused() == window)
            return !m_hasWindowManager || m_windows.isInside(window, activeWindow());
        // Again, when a window manager has found another place after a window was closed.
        xcb_set_input_focus(m_connection.xcb(), XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
        return false;
    };
    expect(waitUntil(hasFocus), "the window did not get the focus");
}

xcb_window_t X11Outside::focused() {
    const auto reply =
        m_connection.reply(xcb_get_input_focus_reply, xcb_get_input_focus(m_connection.xcb()));
    return reply ? reply->focus : xcb_window_t(XCB_WINDOW_NONE);
}

void X11Outside::fake(quint8 kind, xcb_keycode_t key) {
    xcb_test_fake_input(m_connection.xcb(), kind, key, XCB_CURRENT_TIME, m_connection.root(), 0, 0,
                        0);
    m_pressed.removeAll(key);
    if (kind == XCB_KEY_PRESS)
        m_pressed.append(key);
    settle();
    // No finger is back within the millisecond in which it let go; a repeating key is.
    const auto done = std::chrono::steady_clock::now();
    if (kind == XCB_KEY_RELEASE)
        waitUntil([&] { return std::chrono::steady_clock::now() - done >= 2ms; });
}

void X11Outside::type(const QList<xcb_keycode_t>& keys) {
    for (const xcb_keycode_t key : keys)
        press(key);
    QList<xcb_keycode_t> reversed = keys;
    std::reverse(reversed.begin(), reversed.end());
    for (const xcb_keycode_t key : std::as_const(reversed))
        release(key);
}

void X11Outside::chooseGroup(int group) {
    const auto version =
        xcb_xkb_use_extension(m_connection.xcb(), XCB_XKB_MAJOR_VERSION, XCB_XKB_MINOR_VERSION);
    m_connection.reply(xcb_xkb_use_extension_reply, version);
    xcb_xkb_latch_lock_state(m_connection.xcb(), XCB_XKB_ID_USE_CORE_KBD, 0, 0, 1, quint8(group), 0,
                             0, 0);
    settle();
}

bool X11Outside::isDown(xcb_keycode_t key) {
    const auto state =
        m_connection.reply(xcb_query_keymap_reply, xcb_query_keymap(m_connection.xcb()));
    return state && (state->keys[key / 8] & (1 << (key % 8))) != 0;
}

bool X11Outside::grab(xcb_keycode_t key, quint16 modifiers) {
    return m_connection.succeeded(xcb_grab_key_checked(m_connection.xcb(), 0, m_connection.root(),
                                                       modifiers, key, XCB_GRAB_MODE_ASYNC,
                                                       XCB_GRAB_MODE_ASYNC));
}

QList<X11Outside::Key> X11Outside::keys(xcb_window_t window) {
    settle();
    QCoreApplication::processEvents();
    QList<Key> keys;
    for (const auto& [receiver, key] : std::as_const(m_keys))
        if (receiver == window)
            keys.append(key);
    return keys;
}

xcb_window_t X11Outside::activeWindow() const {
    return m_windows
        .values(m_connection.root(), QStringLiteral("_NET_ACTIVE_WINDOW"), XCB_ATOM_WINDOW)
        .value(0);
}

void X11Outside::settle() {
    focused();
}

} // namespace quorvel
