#pragma once

#include "platform/KeyboardLayouts.h"
#include "platform/x11/X11Connection.h"

#include <QStringList>

struct xkb_keymap;

namespace quorvel {

/// The groups of the server's keymap, of which there are four at most.
class X11KeyboardLayouts final : public KeyboardLayouts {
    Q_OBJECT

public:
    explicit X11KeyboardLayouts(X11Connection& connection);

    /// Waits for the server when the maps have to be read: about a millisecond. Empty when it has
    /// no keyboard extension.
    const QList<KeyboardLayoutMap>& maps() override;

    QString activeID() override;
    void activate(const QString& id) override;

private:
    void watchKeyboard();
    void handle(const xcb_generic_event_t& event);
    void load();
    QStringList readIDs();

    X11Connection& m_connection;
    quint8 m_xkbEvent = 0; ///< Number of the keyboard extension's events; 0 without it.
    xcb_atom_t m_rules = XCB_ATOM_NONE;
    QList<KeyboardLayoutMap> m_keyboardLayoutMapsCache;
    bool m_didLoadKeyboardLayoutMaps = false; ///< Since the last change.
    QStringList m_groupIDs;                   ///< Of every group, also those without a map.
};

} // namespace quorvel
