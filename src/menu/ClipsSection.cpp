#include "menu/ClipsSection.h"

#include "foundation/Text.h"

namespace quorvel {

namespace {

constexpr qsizetype numberKeys = 10;

/// Command-1 to Command-9, then Command-0, then none.
KeyEquivalent numberKey(qsizetype index) {
    if (index >= numberKeys)
        return {};
    return {QString::number((index + 1) % numberKeys), Modifier::command};
}

MenuItem clipItem(const RecentClipboardEntry& entry, const MenuContent& content) {
    const QString text = content.shownTexts.shown(entry.id, entry.text);
    MenuItem item;
    item.title = entry.isImage() ? content.strings.text(QStringLiteral("menu.image"))
                                 : shortened(singleLine(text), titleLimit, titleTail);
    item.action = MenuAction::pasteRecentSnippet;
    item.representedObject = entry.id.toString(QUuid::WithoutBraces).toUpper();
    item.imagePNGData = entry.imagePNGData;
    item.symbol = entry.isImage() ? QStringLiteral("photo") : QString();
    item.toolTip = text;
    item.tag = pasteItemTag;
    return item;
}

QList<MenuItem> recentItems(const MenuContent& content, qsizetype limit) {
    const auto& entries = content.history.recentClipboard();
    if (entries.isEmpty())
        return {MenuItem::disabled(content.strings.text(QStringLiteral("menu.noRecentItems")))};
    QList<MenuItem> items;
    for (qsizetype i = 0; i < std::min(limit, entries.size()); ++i) {
        items.append(clipItem(entries.at(i), content));
        items.last().keyEquivalent = numberKey(i);
    }
    return items;
}

MenuItem overflowItem(const MenuContent& content, qsizetype limit) {
    const auto& entries = content.history.recentClipboard();
    MenuItem item;
    item.title = content.strings.format(QStringLiteral("menu.moreClipboardItems.format"),
                                        QString::number(entries.size() - limit));
    item.symbol = QStringLiteral("ellipsis.circle");
    for (qsizetype i = limit; i < entries.size(); ++i)
        item.submenu.append(clipItem(entries.at(i), content));
    return item;
}

QList<MenuItem> pinnedItems(const MenuContent& content) {
    const Date now = content.clock.now();
    QList<MenuItem> items;
    for (const RecentClipboardEntry& entry : content.history.recentClipboard())
        if (entry.pinned && (!entry.pinnedUntil || *entry.pinnedUntil > now))
            items.append(clipItem(entry, content));
    return items;
}

} // namespace

QList<MenuItem> clipsSection(const MenuContent& content) {
    const qsizetype limit = content.preferences.number(keys::clipboardHistoryLimit);
    QList<MenuItem> items{
        MenuItem::header(content.strings.text(QStringLiteral("menu.clipsHeader")))};
    items += recentItems(content, limit);
    if (content.history.recentClipboard().size() > limit)
        items.append(overflowItem(content, limit));
    const QList<MenuItem> pinned = pinnedItems(content);
    if (!pinned.isEmpty()) {
        const QString title = content.strings.text(QStringLiteral("menu.pinnedClipsHeader"));
        items.append(MenuItem::separator());
        items.append(MenuItem::header(countedTitle(title, pinned.size(), content.preferences)));
        items += pinned;
    }
    return items;
}

QString countedTitle(const QString& title, qsizetype count, const Preferences& preferences) {
    return preferences.isOn(keys::sectionCountersEnabled)
               ? QStringLiteral("%1 (%2)").arg(title).arg(count)
               : title;
}

} // namespace quorvel
