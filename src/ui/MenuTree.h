#pragma once

#include "menu/MenuItem.h"

#include <functional>
#include <optional>

namespace quorvel {

/// The first enabled ordinary item, at any depth, for which `matches` holds. A submenu's own row
/// cannot be chosen and is left out; the keys inside it count when it is not filled.
std::optional<MenuItem> findItem(const QList<MenuItem>& items,
                                 const std::function<bool(const MenuItem&)>& matches);

/// Gives every submenu of this identifier its items, at any depth: a clip can stand in several
/// sections. False when there is none.
bool fillSubmenuItems(QList<MenuItem>& items, const QString& identifier,
                      const QList<MenuItem>& content);

/// Whether both stand for the same thing, whatever they look like; an item may get a submenu.
bool isSameItem(const MenuItem& a, const MenuItem& b);

/// Whether the rows of both look the same; texts are left out, as they follow their menu's width.
bool looksAlike(const MenuItem& a, const MenuItem& b);

} // namespace quorvel
