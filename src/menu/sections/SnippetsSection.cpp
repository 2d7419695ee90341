#include "menu/ClipItems.h"
#include "menu/Submenus.h"
#include "menu/sections/Sections.h"

#include "foundation/Text.h"

#include <QStringBuilder>

namespace quorvel {

namespace {

QList<MenuItem> rootItems(const MenuBuild& build) {
    const MenuContent& content = build.content();
    QList<MenuItem> items = content.snippetRows.of(QUuid(), content.snippets.rootSnippets(), build);
    if (items.isEmpty())
        items.append(MenuItem::disabled(build.text("menu.noSavedItems")));
    return items;
}

QList<InnerKey> innerKeys(const SnippetGroup& group) {
    QList<InnerKey> keys;
    for (const Snippet& snippet : group.snippets)
        if (const KeyEquivalent own = shortcutKeys(snippet); !own.key.isEmpty())
            keys.append({own, MenuAction::pasteGroupSnippet, snippetText(group.id, snippet.id)});
    return keys;
}

MenuItem groupItem(const SnippetGroup& group) {
    return {.title = shortened(singleLine(group.name), titleLimit, titleTail),
            .symbol = QStringLiteral("folder"),
            .identifier = groupIdentifier % idText(group.id),
            .innerKeys = innerKeys(group)};
}

} // namespace

QList<MenuItem> snippetsSection(const MenuBuild& build) {
    QList<MenuItem> items{MenuItem::header(build.text("menu.snippetsHeader"))};
    items += rootItems(build);
    for (const SnippetGroup& group : build.content().snippets.groups())
        items.append(groupItem(group));
    if (build.content().snippets.groups().isEmpty())
        items.append(MenuItem::disabled(build.text("menu.noGroups")));
    return items;
}

} // namespace quorvel
