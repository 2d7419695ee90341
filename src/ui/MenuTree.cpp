#include "ui/MenuTree.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace quorvel {

namespace {

/// Once it is filled, the submenu's items stand for its keys.
std::optional<MenuItem> findInnerKey(const MenuItem& item,
                                     const std::function<bool(const MenuItem&)>& matches) {
    if (!item.submenu.isEmpty())
        return std::nullopt;
    for (const InnerKey& inner : item.innerKeys) {
        MenuItem candidate{.action = inner.action, .representedObject = inner.representedObject};
        candidate.keyEquivalent = inner.keyEquivalent;
        if (matches(candidate))
            return candidate;
    }
    return std::nullopt;
}

/// Looked up before anything is filled: a list that is written to is copied first.
bool holds(const QList<MenuItem>& items, const QString& identifier) {
    return std::any_of(items.begin(), items.end(), [&](const MenuItem& item) {
        return item.identifier == identifier || holds(item.submenu, identifier);
    });
}

} // namespace

std::optional<MenuItem> findItem(const QList<MenuItem>& items,
                                 const std::function<bool(const MenuItem&)>& matches) {
    for (const MenuItem& item : items) {
        if (!item.enabled || item.kind != MenuItemKind::ordinary)
            continue;
        if (!item.hasSubmenu() && matches(item))
            return item;
        if (auto found = findItem(item.submenu, matches))
            return found;
        if (auto found = findInnerKey(item, matches))
            return found;
    }
    return std::nullopt;
}

bool fillSubmenuItems(QList<MenuItem>& items, const QString& identifier,
                      const QList<MenuItem>& content) {
    bool isFilled = false;
    for (qsizetype index = 0; index < items.size(); ++index) {
        const MenuItem& item = std::as_const(items)[index];
        if (item.identifier == identifier)
            items[index].submenu = content;
        else if (holds(item.submenu, identifier))
            fillSubmenuItems(items[index].submenu, identifier, content);
        else
            continue;
        isFilled = true;
    }
    return isFilled;
}

bool isSameItem(const MenuItem& a, const MenuItem& b) {
    if (a.kind != b.kind || a.representedObject != b.representedObject)
        return false;
    const bool gainsSubmenu = a.hasSubmenu() != b.hasSubmenu();
    if (gainsSubmenu)
        return !a.representedObject.isEmpty() || a.title == b.title;
    if (a.action != b.action || a.identifier != b.identifier)
        return false;
    const bool isNamed = !a.identifier.isEmpty() || !a.representedObject.isEmpty();
    return isNamed || a.title == b.title;
}

bool looksAlike(const MenuItem& a, const MenuItem& b) {
    const auto look = [](const MenuItem& item) {
        return std::tie(item.kind, item.enabled, item.isPinned, item.action, item.title,
                        item.keyEquivalent, item.symbol, item.colorName);
    };
    const bool isPicture = !a.imagePNGData.isEmpty() || !b.imagePNGData.isEmpty();
    return !isPicture && a.kind != MenuItemKind::textBox && look(a) == look(b);
}

} // namespace quorvel
