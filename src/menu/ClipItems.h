#pragma once

#include "menu/MenuBuild.h"

namespace quorvel {

/// The rows that paste clips and snippets.

enum class TitleLength { shortened, whole };

/// The text of a clip on one line, nothing shown that must be hidden.
QString displayTitle(const RecentClipboardEntry& entry, const MenuContent& content,
                     TitleLength length = TitleLength::shortened);

/// The text as it may be shown.
QString shownText(const RecentClipboardEntry& entry, const MenuContent& content);
QString shownText(const Snippet& snippet, const MenuContent& content);

/// A row of a clip. `representedObject` of the row: the entry's id after the prefix.
MenuItem clipItem(const RecentClipboardEntry& entry, const MenuBuild& build,
                  QStringView prefix = {});

/// A row of a snippet, at the root or in a group.
MenuItem snippetItem(const Snippet& snippet, const QUuid& group, const MenuBuild& build,
                     QStringView prefix = {});

/// The same, whether it is option mode or not.
MenuItem plainSnippetItem(const Snippet& snippet, const QUuid& group, const MenuContent& content,
                          QStringView prefix = {});

/// Gives a row the submenu with everything that can be done with what it pastes.
void leadToModes(MenuItem& item);

/// Command-1 to Command-9, then Command-0, then none.
KeyEquivalent numberKey(qsizetype index);

/// The keys of a snippet's own shortcut; none when it has none.
KeyEquivalent shortcutKeys(const Snippet& snippet);

/// Upper-case, without braces.
QString idText(const QUuid& id);

/// "group|snippet", or the snippet alone at the root.
QString snippetText(const QUuid& group, const QUuid& snippet);

inline constexpr int titleLimit = 40;
inline constexpr int titleTail = 10;

/// Put before the identifiers of what a smart folder shows.
inline constexpr QStringView smartRecentPrefix = u"smartRecent:";
inline constexpr QStringView smartRootPrefix = u"smartRoot:";
inline constexpr QStringView smartGroupPrefix = u"smartGroup:";

/// The identifier of the submenu with everything that can be done with an item.
inline constexpr QStringView advancedIdentifier = u"advanced-lazy-";

} // namespace quorvel
