#include "support/DisplayProbe.h"

#include <cstdlib>

#include <xcb/xcb.h>

namespace quorvel {

namespace {

template <typename T>
using Owned = std::unique_ptr<T, decltype([](void* memory) { std::free(memory); })>;

} // namespace

DisplayProbe::DisplayProbe(const QString& display)
    : m_connection(xcb_connect(display.toLatin1().constData(), nullptr), &xcb_disconnect) {}

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

bool DisplayProbe::hasWindowManager() const {
    // A manager that is gone may have left its window's name; a living one names it twice.
    const QByteArray check("_NET_SUPPORTING_WM_CHECK");
    const quint32 root = xcb_setup_roots_iterator(xcb_get_setup(m_connection.get())).data->root;
    const quint32 window = windowIn(root, check);
    return window != XCB_WINDOW_NONE && windowIn(window, check) == window;
}

} // namespace quorvel
