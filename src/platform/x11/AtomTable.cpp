#include "platform/x11/AtomTable.h"

#include "platform/x11/XcbReply.h"

namespace quorvel {

AtomTable::AtomTable(xcb_connection_t* connection)
    : m_connection(connection) {}

xcb_atom_t AtomTable::atom(const QString& name) {
    const auto known = m_atoms.constFind(name);
    if (known != m_atoms.cend())
        return *known;
    const QByteArray bytes = name.toLatin1();
    const auto cookie = xcb_intern_atom(m_connection, 0, uint16_t(bytes.size()), bytes.constData());
    const XcbOwned<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(m_connection, cookie, nullptr));
    const xcb_atom_t atom = reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
    if (atom != XCB_ATOM_NONE) {
        m_atoms.insert(name, atom);
        m_names.insert(atom, name);
    }
    return atom;
}

QList<QString> AtomTable::names(const QList<xcb_atom_t>& atoms) {
    QHash<xcb_atom_t, xcb_get_atom_name_cookie_t> cookies;
    for (const xcb_atom_t atom : atoms)
        if (!m_names.contains(atom) && !cookies.contains(atom))
            cookies.insert(atom, xcb_get_atom_name(m_connection, atom));
    for (auto cookie = cookies.cbegin(); cookie != cookies.cend(); ++cookie) {
        xcb_generic_error_t* error = nullptr;
        const XcbOwned<xcb_get_atom_name_reply_t> reply(
            xcb_get_atom_name_reply(m_connection, cookie.value(), &error));
        const XcbOwned<xcb_generic_error_t> ownedError(error);
        if (!reply)
            continue;
        m_names.insert(cookie.key(),
                       QString::fromLatin1(xcb_get_atom_name_name(reply.get()),
                                           xcb_get_atom_name_name_length(reply.get())));
    }
    QList<QString> names;
    for (const xcb_atom_t atom : atoms)
        names.append(m_names.value(atom));
    return names;
}

} // namespace quorvel
