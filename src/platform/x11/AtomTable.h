#pragma once

#include <QHash>
#include <QList>
#include <QString>

#include <xcb/xcb.h>

namespace quorvel {

/// Atoms by name and names by atom, each asked for once per connection.
class AtomTable {
public:
    explicit AtomTable(xcb_connection_t* connection);

    xcb_atom_t atom(const QString& name);

    /// Names in the order of the atoms, empty for an atom that the server does not know; unknown
    /// ones are asked for in one go.
    QList<QString> names(const QList<xcb_atom_t>& atoms);

private:
    xcb_connection_t* m_connection;
    QHash<QString, xcb_atom_t> m_atoms;
    QHash<xcb_atom_t, QString> m_names;
};

} // namespace quorvel
