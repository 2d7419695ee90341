#pragma once

#include "menu/MenuContent.h"
#include "menu/MenuItem.h"

namespace quorvel {

/// The whole tree of the status menu. Submenus that cost something are left to `submenuItems`.
QList<MenuItem> statusMenu(const MenuContent& content, const MenuState& state);

} // namespace quorvel
