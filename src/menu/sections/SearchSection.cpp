#include "menu/ClipItems.h"
#include "menu/sections/Sections.h"

namespace quorvel {

namespace {

MenuItem searchField(const MenuBuild& build) {
    return {.kind = MenuItemKind::searchField,
            .title = build.text("menu.searchPlaceholder"),
            .representedObject = build.state().searchQuery};
}

QList<MenuItem> foundClips(const MenuBuild& build, qsizetype limit) {
    QList<MenuItem> items;
    for (const RecentClipboardEntry& entry : build.content().history.recentClipboard()) {
        if (items.size() == limit)
            break;
        if (!build.matches(entry))
            continue;
        items.append(clipItem(entry, build));
        items.last().keyEquivalent = numberKey(items.size() - 1);
    }
    return items;
}

enum class Where { root, groups };

QList<MenuItem> foundSnippets(const MenuBuild& build, Where where, qsizetype limit) {
    QList<MenuItem> items;
    forEachSnippet(build.content().snippets, [&](const Snippet& snippet, const QUuid& group) {
        const bool isMeant = group.isNull() == (where == Where::root);
        if (isMeant && items.size() < limit && build.matches(snippet))
            items.append(snippetItem(snippet, group, build,
                                     group.isNull() ? QStringView() : smartGroupPrefix));
    });
    return items;
}

} // namespace

QList<MenuItem> searchSection(const MenuBuild& build) {
    const Preferences& preferences = build.content().preferences;
    if (!preferences.isOn(keys::menuSearchEnabled))
        return {};
    QList<MenuItem> items{searchField(build)};
    if (!build.isSearching())
        return items;
    const qsizetype limit = preferences.number(keys::menuSearchResultLimit);
    const QList<MenuItem> found = foundClips(build, limit) +
                                  foundSnippets(build, Where::root, limit) +
                                  foundSnippets(build, Where::groups, limit);
    if (!found.isEmpty())
        items += QList<MenuItem>{MenuItem::separator()} + found;
    return items;
}

} // namespace quorvel
