#pragma once

#include "menu/MenuContent.h"
#include "menu/MenuItem.h"

namespace quorvel {

/// The clips of the menu: header, recent clips with their number keys, the ones beyond in a
/// submenu, and the pinned ones.
QList<MenuItem> clipsSection(const MenuContent& content);

/// The title with its count in parentheses, when counters are switched on.
QString countedTitle(const QString& title, qsizetype count, const Preferences& preferences);

inline constexpr int titleLimit = 40;
inline constexpr int titleTail = 10;

} // namespace quorvel
