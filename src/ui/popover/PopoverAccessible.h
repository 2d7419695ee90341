#pragma once

namespace quorvel {

class PopoverList;

/// Makes lists of the popover known to assistive programs as menus of menu items. Once is enough.
void makeListsAccessible();

/// Tells them that the highlight has moved.
void announceHighlight(PopoverList& list);

/// Tells them that other rows stand there.
void announceRows(PopoverList& list);

} // namespace quorvel
