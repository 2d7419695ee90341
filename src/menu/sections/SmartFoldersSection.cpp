#include "menu/Submenus.h"
#include "menu/Symbols.h"
#include "menu/sections/Sections.h"

#include <QStringBuilder>

namespace quorvel {

QList<MenuItem> smartFoldersSection(const MenuBuild& build) {
    const MenuContent& content = build.content();
    QList<MenuItem> items;
    for (const SmartFolderKind folder : content.smartFolders.enabledSmartFolders()) {
        const qsizetype count = folderCount(folder, build);
        if (count == 0 && content.smartFolders.entries(folder).isEmpty())
            continue;
        MenuItem item;
        item.title =
            countedTitle(content.strings.text(titleKey(folder)), count, content.preferences);
        item.symbol = folderSymbol(folder);
        item.identifier = folderIdentifier % rawName(folder);
        items.append(item);
    }
    if (!items.isEmpty())
        items.prepend(MenuItem::header(build.text("menu.smartFoldersHeader")));
    return items;
}

} // namespace quorvel
