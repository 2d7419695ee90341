#include "ui/MenuTree.h"

namespace quorvel {

std::optional<MenuItem> findItem(const QList<MenuItem>& items,
                                 const std::function<bool(const MenuItem&)>& matches) {
    for (const MenuItem& item : items) {
        if (!item.enabled || item.kind != MenuItemKind::ordinary)
            continue;
        if (!item.hasSubmenu() && matches(item))
            return item;
        if (auto found = findItem(item.submenu, matches))
            return found;
    }
    return std::nullopt;
}

bool fillSubmenuItem(QList<MenuItem>& items, const QString& identifier,
                     const QList<MenuItem>& content) {
    for (MenuItem& item : items) {
        if (item.identifier == identifier) {
            item.submenu = content;
            return true;
        }
        if (fillSubmenuItem(item.submenu, identifier, content))
            return true;
    }
    return false;
}

bool isSameItem(const MenuItem& a, const MenuItem& b) {
    if (a.kind != b.kind || a.action != b.action || a.identifier != b.identifier ||
        a.representedObject != b.representedObject)
        return false;
    const bool isNamed = !a.identifier.isEmpty() || !a.representedObject.isEmpty();
    return isNamed || a.title == b.title;
}

} // namespace quorvel
