#include "menu/ClipDetails.h"
#include "menu/ClipItems.h"
#include "menu/Submenus.h"
#include "menu/sections/Sections.h"

namespace quorvel {

namespace {

QList<MenuItem> recentItems(const MenuBuild& build) {
    const auto& entries = build.content().history.recentClipboard();
    const qsizetype count = std::min(recentCount(build.content()), entries.size());
    QList<MenuItem> items;
    for (qsizetype i = 0; i < count; ++i) {
        if (!build.matches(entries.at(i)))
            continue;
        items.append(clipItem(entries.at(i), build));
        items.last().keyEquivalent = numberKey(items.size() - 1);
    }
    if (items.isEmpty()) {
        items.append(MenuItem::disabled(
            build.text(build.isSearching() ? "menu.noMatches" : "menu.noRecentItems")));
        items.last().symbol =
            build.isSearching() ? QStringLiteral("magnifyingglass") : QStringLiteral("tray");
    }
    return items;
}

MenuItem overflowItem(const MenuBuild& build, qsizetype count) {
    MenuItem item;
    item.title = build.content().strings.format(QStringLiteral("menu.moreClipboardItems.format"),
                                                QString::number(count));
    item.symbol = QStringLiteral("ellipsis.circle");
    item.identifier = moreIdentifier.toString();
    return item;
}

MenuItem addItem(const MenuBuild& build) {
    return {.title = build.text("menu.addClipboard"),
            .action = MenuAction::addFromClipboard,
            .symbol = QStringLiteral("plus.circle"),
            .enabled = build.pasteboardHasText()};
}

} // namespace

QList<MenuItem> clipsSection(const MenuBuild& build) {
    QList<MenuItem> items{MenuItem::header(build.text("menu.clipsHeader"))};
    items += recentItems(build);
    if (const qsizetype beyond = overflowEntries(build).size(); beyond > 0)
        items.append(overflowItem(build, beyond));
    items.append(addItem(build));
    return items;
}

QList<MenuItem> pinnedSection(const MenuBuild& build) {
    QList<MenuItem> items;
    for (const RecentClipboardEntry& entry : build.content().history.recentClipboard())
        if (isPinnedNow(entry, build.content().clock) && build.matches(entry))
            items.append(clipItem(entry, build));
    if (items.isEmpty())
        return {};
    items.prepend(MenuItem::header(countedTitle(build.text("menu.pinnedClipsHeader"), items.size(),
                                                build.content().preferences)));
    return items;
}

} // namespace quorvel
