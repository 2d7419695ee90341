#pragma once

#include "foundation/Modifiers.h"

#include <QHash>
#include <QList>

#include <array>
#include <optional>

#include <xcb/xcb.h>
#include <xkbcommon/xkbcommon.h>

namespace quorvel {

/// What the keys of the keyboard give at one moment: a snapshot of the server's keymap, its active
/// layout group and its modifier keys.
class X11KeyTables {
public:
    /// The keys that set each of the server's eight modifiers.
    using ModifierKeys = std::array<QList<xcb_keycode_t>, 8>;

    /// Absent when the server has no keyboard extension. Waits for replies on the connection.
    static std::optional<X11KeyTables> read(xcb_connection_t* connection);

    X11KeyTables(xkb_keymap* keymap, xkb_layout_index_t group, const ModifierKeys& modifierKeys);

    /// The key that gives the character in the active group, else in another one, without regard
    /// to case. A key of the number pad never counts.
    std::optional<xcb_keycode_t> keyFor(QChar character) const;
    std::optional<xcb_keycode_t> keyForSymbol(xkb_keysym_t symbol) const;

    /// What the key gives without modifiers, lower-case, and best for naming it first: in the
    /// active group if that has Latin letters, in the other groups that have, on a US keyboard,
    /// and last in the other groups.
    QList<QChar> plainCharacters(xkb_keycode_t key) const;

    /// The server's modifier bits; absent when the keyboard has no key for one of them.
    std::optional<quint16> maskFor(Modifiers modifiers) const;

    /// The bits of Caps Lock and Num Lock: on or off, they are no part of a shortcut.
    quint16 capsLockMask() const { return XCB_MOD_MASK_LOCK; }
    quint16 numLockMask() const { return m_numLockMask; }

    /// One key for each modifier; those that the keyboard lacks are left out.
    QList<xcb_keycode_t> keysOf(Modifiers modifiers) const;

    /// Every key that acts as a modifier while it is held (no lock keys).
    QList<xcb_keycode_t> heldModifierKeys() const;

    xkb_layout_index_t group() const { return m_group; }

    /// Whether every character, or every modifier, is where it is in the other tables.
    bool hasSameCharacters(const X11KeyTables& other) const;
    bool hasSameModifiers(const X11KeyTables& other) const;

private:
    void addGroup(xkb_keymap* keymap, xkb_layout_index_t group, xkb_level_index_t firstLevel,
                  xkb_level_index_t endLevel);
    void addSymbol(xkb_keysym_t symbol, xcb_keycode_t key);
    void addPlainCharacters(xkb_keymap* keymap);
    int modifierIndex(xkb_keymap* keymap, std::initializer_list<xkb_keysym_t> symbols) const;
    static bool gives(xkb_keymap* keymap, xcb_keycode_t key, xkb_keysym_t symbol);

    xkb_layout_index_t m_group;
    ModifierKeys m_modifierKeys;
    QHash<char32_t, xcb_keycode_t> m_characters;
    QHash<xkb_keysym_t, xcb_keycode_t> m_symbols;
    QHash<xkb_keycode_t, QList<QChar>> m_plainCharacters;
    QHash<quint32, int> m_modifierIndices; ///< Of our modifiers that the keyboard has.
    quint16 m_numLockMask = 0;
    quint16 m_lockMask = 0; ///< Every modifier that stays on after its key is released.
};

/// The key of a character on a US keyboard, for layouts that do not have it.
std::optional<xcb_keycode_t> usKeyFor(QChar character);

/// The opposite: what the key gives on a US keyboard, as far as it is a letter, digit or sign.
std::optional<QChar> usCharacterOf(xkb_keycode_t key);

} // namespace quorvel
