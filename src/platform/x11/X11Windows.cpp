#include "platform/x11/X11Windows.h"

namespace quorvel {

namespace {

/// In units of four bytes; class names and window types are far shorter.
constexpr quint32 mostPropertyLength = 256;

} // namespace

xcb_window_t X11Windows::inputFocus() const {
    const auto focus =
        m_connection.reply(xcb_get_input_focus_reply, xcb_get_input_focus(m_connection.xcb()));
    const xcb_window_t window = focus ? focus->focus : xcb_window_t(XCB_WINDOW_NONE);
    const bool nobody = window == XCB_INPUT_FOCUS_POINTER_ROOT || window == m_connection.root();
    return nobody ? xcb_window_t(XCB_WINDOW_NONE) : window;
}

bool X11Windows::exists(xcb_window_t window) const {
    const auto cookie = xcb_get_window_attributes(m_connection.xcb(), window);
    return m_connection.reply(xcb_get_window_attributes_reply, cookie) != nullptr;
}

xcb_window_t X11Windows::parentOf(xcb_window_t window) const {
    const auto tree =
        m_connection.reply(xcb_query_tree_reply, xcb_query_tree(m_connection.xcb(), window));
    return tree ? tree->parent : xcb_window_t(XCB_WINDOW_NONE);
}

bool X11Windows::isInside(xcb_window_t window, xcb_window_t ancestor) const {
    while (window != XCB_WINDOW_NONE && window != ancestor)
        window = parentOf(window);
    return window != XCB_WINDOW_NONE;
}

bool X11Windows::holdsFocus(xcb_window_t window, xcb_window_t element, xcb_window_t focus) const {
    if (focus == XCB_WINDOW_NONE || !isInside(focus, window))
        return false;
    return isInside(focus, element) || !isInside(element, window);
}

WindowClass X11Windows::classOf(xcb_window_t window) const {
    const QList<QByteArray> texts = bytes(window, XCB_ATOM_WM_CLASS).split('\0');
    return {QString::fromLatin1(texts.value(0)), QString::fromLatin1(texts.value(1))};
}

xcb_window_t X11Windows::topWindow(xcb_window_t window) const {
    while (window != XCB_WINDOW_NONE && classOf(window).isEmpty())
        window = parentOf(window);
    return window;
}

QList<quint32> X11Windows::values(xcb_window_t window, const QString& property,
                                  xcb_atom_t type) const {
    const auto cookie = xcb_get_property(m_connection.xcb(), 0, window, m_connection.atom(property),
                                         type, 0, mostPropertyLength);
    const auto reply = m_connection.reply(xcb_get_property_reply, cookie);
    if (!reply || reply->format != 32)
        return {};
    const auto* first = static_cast<const quint32*>(xcb_get_property_value(reply.get()));
    return {first, first + reply->value_len};
}

QByteArray X11Windows::bytes(xcb_window_t window, xcb_atom_t property) const {
    const auto cookie = xcb_get_property(m_connection.xcb(), 0, window, property,
                                         XCB_GET_PROPERTY_TYPE_ANY, 0, mostPropertyLength);
    const auto reply = m_connection.reply(xcb_get_property_reply, cookie);
    if (!reply || reply->format != 8)
        return {};
    return {static_cast<const char*>(xcb_get_property_value(reply.get())),
            qsizetype(reply->value_len)};
}

} // namespace quorvel
