#pragma once

#include "menu/MenuBuild.h"

namespace quorvel {

/// What can be done with the parts of a text, by what the text is: paste, open, call, write, run.
/// Nothing for a text that is nothing in particular.
QList<MenuItem> contextItems(const QString& text, const MenuBuild& build);

/// Of the parameters of one link, and of the parts of one identifier.
inline constexpr qsizetype mostPartRows = 20;

} // namespace quorvel
