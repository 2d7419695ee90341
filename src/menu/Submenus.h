#pragma once

#include "menu/MenuBuild.h"

namespace quorvel {

/// Identifiers of the submenus that are filled when they are opened.
inline constexpr QStringView moreIdentifier = u"more-lazy-";
inline constexpr QStringView folderIdentifier = u"folder-lazy-";
inline constexpr QStringView groupIdentifier = u"group-lazy-";

/// The clips beyond the recent ones that the search lets through.
QList<const RecentClipboardEntry*> overflowEntries(const MenuBuild& build);

/// How many entries the menu shows before the others go into a submenu.
qsizetype recentCount(const MenuContent& content);

/// The entry at this place of the recent ones, from 0; null when there are not so many. Valid until
/// the history changes.
const RecentClipboardEntry* recentEntry(const MenuContent& content, qsizetype position);

/// How many clips and snippets of a smart folder the search lets through.
qsizetype folderCount(SmartFolderKind folder, const MenuBuild& build);

/// The items of a submenu, by its identifier; nothing for one that is not known.
QList<MenuItem> submenuItems(const QString& identifier, const MenuBuild& build);

} // namespace quorvel
