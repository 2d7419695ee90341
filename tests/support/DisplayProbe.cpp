#include "support/DisplayProbe.h"

#include <cstdlib>

#include <xcb/xcb.h>

namespace quorvel {

namespace {

template <typename T>
using Owned = std::unique_ptr<T, decltype([](void* memory) { std::free(memory); })>;

} // namespace

DisplayProbe::DisplayProbe(const QString& display)
    : m_connection(xcb_connect(display.toLatin1().constData(), nullptr), &xcb_disconnect) {
    if (!isConnected())
        return;
    m_window = xcb_generate_id(m_connection.get());
    xcb_create_window(m_connection.get(), XCB_COPY_FROM_PARENT, m_window, root(), 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
}

DisplayProbe::~DisplayProbe() = default;

bool DisplayProbe::isConnected() const {
    return xcb_connection_has_error(m_connection.get()) == 0;
}

quint32 DisplayProbe::atom(const QByteArray& name) const {
    const auto cookie =
        xcb_intern_atom(m_connection.get(), 0, quint16(name.size()), name.constData());
    const Owned<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(m_connection.get(), cookie, nullptr));
    return reply ? reply->atom : quint32(XCB_ATOM_NONE);
}

quint32 DisplayProbe::owner(const QByteArray& selection) const {
    const auto cookie = xcb_get_selection_owner(m_connection.get(), atom(selection));
    const Owned<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(m_connection.get(), cookie, nullptr));
    return reply ? reply->owner : quint32(XCB_WINDOW_NONE);
}

quint32 DisplayProbe::windowIn(quint32 window, const QByteArray& property) const {
    const auto cookie =
        xcb_get_property(m_connection.get(), 0, window, atom(property), XCB_ATOM_WINDOW, 0, 1);
    const Owned<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(m_connection.get(), cookie, nullptr));
    if (!reply || reply->value_len != 1)
        return XCB_WINDOW_NONE;
    return *static_cast<const quint32*>(xcb_get_property_value(reply.get()));
}

quint32 DisplayProbe::root() const {
    return xcb_setup_roots_iterator(xcb_get_setup(m_connection.get())).data->root;
}

bool DisplayProbe::hasWindowManager() const {
    // A manager that is gone may have left its window's name; a living one names it twice.
    const QByteArray check("_NET_SUPPORTING_WM_CHECK");
    const quint32 window = windowIn(root(), check);
    return window != XCB_WINDOW_NONE && windowIn(window, check) == window;
}

bool DisplayProbe::windowManagerAnswers() const {
    if (!hasWindowManager())
        return false;
    xcb_client_message_event_t question{};
    question.response_type = XCB_CLIENT_MESSAGE;
    question.format = 32;
    question.window = m_window;
    question.type = atom("_NET_REQUEST_FRAME_EXTENTS");
    xcb_send_event(m_connection.get(), 0, root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&question));
    const auto cookie = xcb_get_property(m_connection.get(), 0, m_window,
                                         atom("_NET_FRAME_EXTENTS"), XCB_ATOM_CARDINAL, 0, 4);
    const Owned<xcb_get_property_reply_t> answer(
        xcb_get_property_reply(m_connection.get(), cookie, nullptr));
    return answer && answer->value_len == 4;
}

} // namespace quorvel
