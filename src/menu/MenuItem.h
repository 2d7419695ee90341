#pragma once

#include "foundation/Modifiers.h"
#include "menu/MenuAction.h"

#include <QByteArray>
#include <QList>
#include <QString>

namespace quorvel {

enum class MenuItemKind {
    ordinary,
    header,      ///< Names the section below it.
    separator,   ///< Between two sections.
    hint,        ///< A line that teaches something.
    searchField, ///< The title is the placeholder, the represented object the text in it.
    textBox,     ///< The title is a text to read, of any length and with line breaks.
};

struct KeyEquivalent {
    QString key; ///< One character; empty for none.
    Modifiers modifiers;

    bool operator==(const KeyEquivalent&) const = default;
};

/// A key equivalent of an item inside a submenu that is not filled yet.
struct InnerKey {
    KeyEquivalent keyEquivalent;
    MenuAction action = MenuAction::none;
    QString representedObject;
};

/// One row of a menu, as a plain value: what it says, what it does, what it leads to.
struct MenuItem {
    MenuItemKind kind = MenuItemKind::ordinary;
    QString title;
    QString detail; ///< Said more quietly, such as where a clip is from; empty for nothing.
    MenuAction action = MenuAction::none;
    QString representedObject; ///< Identifies what the action is about.
    KeyEquivalent keyEquivalent;
    QString symbol;          ///< Name of the icon; empty for none.
    QByteArray imagePNGData; ///< Picture to show as a thumbnail instead of the symbol.
    QString colorName;       ///< A colour to show as a swatch instead of the symbol: "#rrggbb".
    QString toolTip;
    bool enabled = true;
    bool isPinned = false;
    int tag = 0;
    QString identifier; ///< Names a submenu; with "-lazy-" in it, it is filled when opened.
    QList<MenuItem> submenu;
    QList<InnerKey> innerKeys; ///< Of a submenu that is not filled yet.

    bool hasSubmenu() const { return !submenu.isEmpty() || isLazy(); }
    bool isLazy() const { return identifier.contains(QLatin1StringView("-lazy-")); }

    static MenuItem separator() { return {.kind = MenuItemKind::separator, .enabled = false}; }
    static MenuItem header(const QString& title) {
        return {.kind = MenuItemKind::header, .title = title, .enabled = false};
    }
    static MenuItem disabled(const QString& title) { return {.title = title, .enabled = false}; }
};

/// Carried by every item that pastes a clip or a snippet.
inline constexpr int pasteItemTag = 4101;

} // namespace quorvel

// Lists of many rows grow without moving each of them.
Q_DECLARE_TYPEINFO(quorvel::KeyEquivalent, Q_RELOCATABLE_TYPE);
Q_DECLARE_TYPEINFO(quorvel::InnerKey, Q_RELOCATABLE_TYPE);
Q_DECLARE_TYPEINFO(quorvel::MenuItem, Q_RELOCATABLE_TYPE);
