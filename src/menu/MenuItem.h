#pragma once

#include "foundation/Modifiers.h"

#include <QByteArray>
#include <QList>
#include <QString>

namespace quorvel {

/// What choosing an item asks for. Named like the operations that carry them out.
enum class MenuAction {
    none,
    pasteRecentSnippet,
    openGeneralSettings,
    quit,
};

enum class MenuItemKind { ordinary, header, separator };

struct KeyEquivalent {
    QString key; ///< One character; empty for none.
    Modifiers modifiers;

    bool operator==(const KeyEquivalent&) const = default;
};

/// One row of a menu, as a plain value: what it says, what it does, what it leads to.
struct MenuItem {
    MenuItemKind kind = MenuItemKind::ordinary;
    QString title;
    MenuAction action = MenuAction::none;
    QString representedObject; ///< Identifies what the action is about.
    KeyEquivalent keyEquivalent;
    QString symbol;          ///< Name of the icon; empty for none.
    QByteArray imagePNGData; ///< Picture to show as a thumbnail instead of the symbol.
    QString toolTip;
    bool enabled = true;
    int tag = 0;
    QString
        identifier; ///< Names a submenu; with "-lazy-" in it, the submenu is filled when opened.
    QList<MenuItem> submenu;

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
