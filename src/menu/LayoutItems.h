#pragma once

#include "menu/MenuBuild.h"

namespace quorvel {

/// A separator and the rows that paste a text as if it had been typed in another keyboard layout;
/// nothing for a long text, and no row that is most likely nonsense. `shown` is the text as it may
/// be shown: what must be hidden is not shown in another layout either.
QList<MenuItem> layoutItems(const QString& text, const QString& shown, const MenuBuild& build);

} // namespace quorvel
