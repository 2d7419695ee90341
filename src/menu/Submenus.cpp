#include "menu/Submenus.h"

#include "menu/AdvancedSubmenu.h"
#include "menu/ClipItems.h"

#include <algorithm>

namespace quorvel {

namespace {

QList<MenuItem> moreItems(const MenuBuild& build) {
    QList<MenuItem> items;
    for (const RecentClipboardEntry* entry : overflowEntries(build))
        items.append(clipItem(*entry, build));
    return items;
}

/// One thing that a smart folder offers, and how often it was pasted.
struct SmartFolderMenuCandidate {
    MenuItem item;
    qint64 usageCount = 0;
};

QList<SmartFolderMenuCandidate> candidates(SmartFolderKind folder, const MenuBuild& build) {
    QList<SmartFolderMenuCandidate> found;
    for (const RecentClipboardEntry& entry : build.content().smartFolders.entries(folder))
        if (build.matches(entry))
            found.append({clipItem(entry, build, smartRecentPrefix), entry.usageCount});
    for (const auto& [snippet, group] : build.content().folderSnippets.of(folder))
        if (build.matches(*snippet))
            found.append({snippetItem(*snippet, group, build,
                                      group.isNull() ? smartRootPrefix : smartGroupPrefix),
                          snippet->usageCount});
    return found;
}

void sortByUse(QList<SmartFolderMenuCandidate>& candidates) {
    std::stable_sort(candidates.begin(), candidates.end(),
                     [](const auto& a, const auto& b) { return a.usageCount > b.usageCount; });
}

QList<MenuItem> mostUsedItems(QList<SmartFolderMenuCandidate> candidates, const MenuBuild& build) {
    const Preferences& preferences = build.content().preferences;
    if (!preferences.isOn(keys::smartFolderMostUsedEnabled))
        return {};
    const int threshold = preferences.number(keys::smartFolderMostUsedThreshold);
    candidates.removeIf([&](const auto& candidate) { return candidate.usageCount < threshold; });
    if (candidates.isEmpty())
        return {};
    sortByUse(candidates);
    QList<MenuItem> items{MenuItem::header(build.text("menu.mostUsed"))};
    for (const auto& candidate : candidates)
        items.append(candidate.item);
    items.append(MenuItem::separator());
    return items;
}

QList<MenuItem> folderItems(QStringView name, const MenuBuild& build) {
    const auto& folders = allSmartFolders();
    const auto folder = std::find_if(folders.begin(), folders.end(),
                                     [&](SmartFolderKind kind) { return rawName(kind) == name; });
    if (folder == folders.end())
        return {};
    QList<SmartFolderMenuCandidate> all = candidates(*folder, build);
    if (all.isEmpty())
        return {MenuItem::disabled(build.text("menu.noMatches"))};
    QList<MenuItem> items = mostUsedItems(all, build);
    if (build.content().preferences.isOn(keys::smartSortingEnabled))
        sortByUse(all);
    for (const auto& candidate : all)
        items.append(candidate.item);
    return items;
}

QList<MenuItem> groupItems(QStringView id, const MenuBuild& build) {
    const SnippetGroup* group = build.content().snippets.group(QUuid::fromString(id));
    if (!group)
        return {};
    QList<MenuItem> items = build.content().snippetRows.of(group->id, group->snippets, build);
    if (items.isEmpty())
        items.append(MenuItem::disabled(build.text("menu.empty")));
    items.append(MenuItem::separator());
    items.append({.title = build.text("menu.addClipboardToGroup"),
                  .action = MenuAction::addFromClipboardToGroup,
                  .representedObject = id.toString(),
                  .symbol = QStringLiteral("plus.circle"),
                  .enabled = build.pasteboardHasText()});
    return items;
}

} // namespace

qsizetype recentCount(const MenuContent& content) {
    return content.preferences.number(keys::clipboardHistoryLimit);
}

const RecentClipboardEntry* recentEntry(const MenuContent& content, qsizetype position) {
    const auto& entries = content.history.recentClipboard();
    const bool isShown = position >= 0 && position < std::min(recentCount(content), entries.size());
    return isShown ? &entries.at(position) : nullptr;
}

QList<const RecentClipboardEntry*> overflowEntries(const MenuBuild& build) {
    const auto& entries = build.content().history.recentClipboard();
    QList<const RecentClipboardEntry*> beyond;
    for (qsizetype i = recentCount(build.content()); i < entries.size(); ++i)
        if (build.matches(entries.at(i)))
            beyond.append(&entries.at(i));
    return beyond;
}

qsizetype folderCount(SmartFolderKind folder, const MenuBuild& build) {
    const auto& entries = build.content().smartFolders.entries(folder);
    const auto& snippets = build.content().folderSnippets.of(folder);
    if (!build.isSearching())
        return entries.size() + snippets.size();
    return std::count_if(entries.begin(), entries.end(),
                         [&](const auto& entry) { return build.matches(entry); }) +
           std::count_if(snippets.begin(), snippets.end(),
                         [&](const auto& source) { return build.matches(*source.snippet); });
}

QList<MenuItem> submenuItems(const QString& identifier, const MenuBuild& build) {
    struct Filler {
        QStringView prefix;
        QList<MenuItem> (*items)(QStringView, const MenuBuild&);
    };
    static constexpr std::array fillers{
        Filler{moreIdentifier, [](QStringView, const MenuBuild& b) { return moreItems(b); }},
        Filler{folderIdentifier, folderItems},
        Filler{groupIdentifier, groupItems},
        Filler{advancedIdentifier, advancedItems},
    };
    for (const Filler& filler : fillers)
        if (identifier.startsWith(filler.prefix))
            return filler.items(QStringView(identifier).sliced(filler.prefix.size()), build);
    return {};
}

} // namespace quorvel
