#pragma once

#include "menu/MenuBuild.h"

namespace quorvel {

/// Everything that can be done with a clip or a snippet, by the represented object of its row:
/// a heading, the ways to paste it, what its text offers, the text as typed in another keyboard
/// layout, and for a clip its pin. Nothing when it is gone.
QList<MenuItem> advancedItems(QStringView representedObject, const MenuBuild& build);

} // namespace quorvel
