#include "platform/x11/X11SyntheticKeys.h"

#include <algorithm>
#include <utility>

#include <xcb/xtest.h>

namespace quorvel {

QList<KeyAction> strokeActions(const KeyStroke& stroke, const QList<xcb_keycode_t>& heldModifiers,
                               const QList<xcb_keycode_t>& heldKeys) {
    QList<KeyAction> actions;
    const auto add = [&actions](KeyAction::Kind kind, const QList<xcb_keycode_t>& keys) {
        for (const xcb_keycode_t key : keys)
            actions.append({kind, key});
    };
    QList<xcb_keycode_t> reversed = stroke.modifierKeys;
    std::reverse(reversed.begin(), reversed.end());
    add(KeyAction::release, heldKeys);
    add(KeyAction::release, heldModifiers);
    // The server drops the press of a key that our device has down, whatever the user's has.
    add(KeyAction::release, reversed);
    add(KeyAction::press, stroke.modifierKeys);
    for (int pressed = 0; pressed < stroke.times; ++pressed) {
        add(KeyAction::press, {stroke.key});
        add(KeyAction::release, {stroke.key});
    }
    add(KeyAction::release, reversed);
    add(KeyAction::press, heldModifiers);
    return actions;
}

X11SyntheticKeys::X11SyntheticKeys(X11Connection& connection)
    : m_connection(connection) {
    if (!m_connection.isAlive())
        return;
    const xcb_query_extension_reply_t* extension =
        xcb_get_extension_data(m_connection.xcb(), &xcb_test_id);
    m_hasExtension = extension && extension->present;
    m_connection.keepArrivedEvents();
}

bool X11SyntheticKeys::isAvailable() const {
    return m_hasExtension && m_connection.isAlive();
}

QList<xcb_keycode_t> X11SyntheticKeys::heldAmong(const QList<xcb_keycode_t>& keys) const {
    const auto state =
        m_connection.reply(xcb_query_keymap_reply, xcb_query_keymap(m_connection.xcb()));
    QList<xcb_keycode_t> held;
    for (const xcb_keycode_t key : keys)
        if (state && (state->keys[key / 8] & (1 << (key % 8))) != 0 && !held.contains(key))
            held.append(key);
    return held;
}

bool X11SyntheticKeys::post(const KeyStroke& stroke, const QList<xcb_keycode_t>& modifierKeys,
                            const QList<xcb_keycode_t>& otherKeys,
                            const std::function<bool()>& isStillRight) {
    // With the server to ourselves the focus cannot move between the question and the keys.
    xcb_grab_server(m_connection.xcb());
    const bool right = isStillRight();
    if (right) {
        const QList<xcb_keycode_t> heldModifiers = heldAmong(modifierKeys);
        for (const KeyAction& action : strokeActions(stroke, heldModifiers, heldAmong(otherKeys)))
            send(action);
        m_pressedForUser.append(heldModifiers);
    }
    xcb_ungrab_server(m_connection.xcb());
    const auto processed =
        m_connection.reply(xcb_get_input_focus_reply, xcb_get_input_focus(m_connection.xcb()));
    return right && processed;
}

bool X11SyntheticKeys::tidyUp() {
    const QList<xcb_keycode_t> stillHeld = heldAmong(m_pressedForUser);
    for (const xcb_keycode_t key : std::as_const(m_pressedForUser))
        if (!stillHeld.contains(key))
            send({KeyAction::release, key});
    m_connection.flush();
    m_pressedForUser = stillHeld;
    return m_pressedForUser.isEmpty();
}

void X11SyntheticKeys::send(const KeyAction& action) {
    const bool press = action.kind == KeyAction::press;
    xcb_test_fake_input(m_connection.xcb(), press ? XCB_KEY_PRESS : XCB_KEY_RELEASE, action.key,
                        XCB_CURRENT_TIME, m_connection.root(), 0, 0, 0);
}

} // namespace quorvel
