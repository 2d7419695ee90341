#include "menu/AdvancedSubmenu.h"

#include "menu/ClipDetails.h"
#include "menu/ClipItems.h"
#include "menu/ContextRows.h"
#include "menu/LayoutItems.h"
#include "menu/RowSource.h"
#include "menu/Submenus.h"
#include "paste/PasteOption.h"

#include <array>

namespace quorvel {

namespace {

struct PasteRow {
    PasteOption option;
    const char* title; ///< Null for the row that bears the title of the clip.
    QStringView symbol;
};

constexpr std::array pasteRows{
    PasteRow{PasteOption::normal, nullptr, u"doc.on.clipboard"},
    PasteRow{PasteOption::plainText, "menu.pastePlainTextNow", u"textformat"},
    PasteRow{PasteOption::withEdit, "menu.pasteWithEditNow", u"square.and.pencil"},
    PasteRow{PasteOption::keepClipboard, "menu.pasteKeepClipboardNow",
             u"arrow.uturn.backward.circle"},
};

MenuAction withMode(MenuAction action) {
    switch (action) {
    case MenuAction::pasteRootSnippet:
        return MenuAction::pasteRootSnippetWithMode;
    case MenuAction::pasteGroupSnippet:
        return MenuAction::pasteGroupSnippetWithMode;
    default:
        return MenuAction::pasteRecentSnippetWithMode;
    }
}

/// The row itself as a heading, then the ways to paste what `source` names. `keys` belong to the
/// normal way.
QList<MenuItem> pasteItems(const MenuItem& row, const QString& source, const KeyEquivalent& keys,
                           const MenuBuild& build) {
    MenuItem heading = row;
    heading.action = MenuAction::none;
    heading.enabled = false;
    heading.identifier.clear();
    heading.keyEquivalent = {};
    heading.tag = 0;
    QList<MenuItem> items{heading, MenuItem::separator()};
    for (const PasteRow& paste : pasteRows)
        items.append({.title = paste.title ? build.text(paste.title) : row.title,
                      .action = withMode(row.action),
                      .representedObject = source + u'|' + rawName(paste.option),
                      .keyEquivalent = paste.option == PasteOption::normal ? keys : KeyEquivalent(),
                      .symbol = paste.symbol.toString(),
                      .tag = pasteItemTag});
    return items;
}

MenuItem pinItem(const char* title, QStringView symbol, MenuAction action,
                 const RecentClipboardEntry& entry, const MenuBuild& build) {
    return {.title = build.text(title),
            .action = action,
            .representedObject = idText(entry.id),
            .symbol = symbol.toString()};
}

QList<MenuItem> pinItems(const RecentClipboardEntry& entry, const MenuBuild& build) {
    const bool isPinned = isPinnedNow(entry, build.content().clock);
    return {
        pinItem(isPinned ? "action.unpin" : "action.pinTop", isPinned ? u"pin.slash" : u"pin",
                MenuAction::togglePinRecentSnippet, entry, build),
        pinItem("action.pinForHour", u"clock", MenuAction::pinRecentSnippetForHour, entry, build),
        pinItem("action.pinForDay", u"calendar", MenuAction::pinRecentSnippetForDay, entry, build),
    };
}

KeyEquivalent recentKey(const RecentClipboardEntry& entry, const MenuBuild& build) {
    const auto& entries = build.content().history.recentClipboard();
    const qsizetype count = std::min(recentCount(build.content()), entries.size());
    qsizetype shown = 0;
    for (qsizetype i = 0; i < count; ++i) {
        if (entries.at(i).id == entry.id)
            return numberKey(shown);
        shown += build.matches(entries.at(i)) ? 1 : 0;
    }
    return {};
}

/// A separator and the items; nothing without items.
QList<MenuItem> section(const QList<MenuItem>& items) {
    return items.isEmpty() ? items : QList<MenuItem>{MenuItem::separator()} + items;
}

QList<MenuItem> entryItems(const RecentClipboardEntry& entry, const MenuBuild& build) {
    QList<MenuItem> items =
        pasteItems(clipItem(entry, build), idText(entry.id), recentKey(entry, build), build);
    if (entry.isImage()) // It is no text to strip or to edit.
        items.removeIf([](const MenuItem& item) {
            return item.representedObject.endsWith(rawName(PasteOption::plainText)) ||
                   item.representedObject.endsWith(rawName(PasteOption::withEdit));
        });
    items += section(contextItems(entry.text, build));
    items += layoutItems(entry.text, shownText(entry, build.content()), build);
    if (build.content().history.entry(entry.id))
        items += section(pinItems(entry, build));
    return items;
}

} // namespace

QList<MenuItem> advancedItems(QStringView representedObject, const MenuBuild& build) {
    const RowSource source = rowSource(representedObject);
    if (const RecentClipboardEntry* entry = build.content().smartFolders.entry(source.id))
        return entryItems(*entry, build);
    if (const Snippet* snippet = build.content().snippets.snippet(source.id))
        return pasteItems(snippetItem(*snippet, source.group, build),
                          snippetText(source.group, source.id), shortcutKeys(*snippet), build) +
               section(contextItems(snippet->text, build)) +
               layoutItems(snippet->text, shownText(*snippet, build.content()), build);
    return {};
}

} // namespace quorvel
