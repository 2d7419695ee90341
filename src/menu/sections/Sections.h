#pragma once

#include "menu/MenuBuild.h"

namespace quorvel {

/// The parts that the status menu is put together from, top to bottom. A part that has nothing to
/// show is empty; none begins or ends with a separator.

QList<MenuItem> problemSection(const MenuBuild& build);
QList<MenuItem> hintSection(const MenuBuild& build);

/// The search field, and below it what the search has found.
QList<MenuItem> searchSection(const MenuBuild& build);

QList<MenuItem> translationSection(const MenuBuild& build);

/// What the pasteboard holds, as a text to read, and the tools that rewrite it.
QList<MenuItem> copiedTextSection(const MenuBuild& build);
QList<MenuItem> copyToolsSection(const MenuBuild& build);

/// Recent clips with their number keys, the ones beyond in a submenu, "add from clipboard".
QList<MenuItem> clipsSection(const MenuBuild& build);
QList<MenuItem> pinnedSection(const MenuBuild& build);
QList<MenuItem> smartFoldersSection(const MenuBuild& build);
QList<MenuItem> snippetsSection(const MenuBuild& build);

QList<MenuItem> footerSection(const MenuBuild& build);

} // namespace quorvel
