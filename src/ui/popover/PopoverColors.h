#pragma once

#include <QColor>
#include <QPalette>

namespace quorvel {

/// The colours of the popover, all taken from the desktop's palette, light or dark.
struct PopoverColors {
    explicit PopoverColors(const QPalette& palette);

    QColor ground;
    QColor border;
    QColor text;
    QColor quiet; ///< For what is said in passing; still legible.
    QColor faint; ///< For what cannot be chosen.
    QColor line;
    QColor field; ///< Behind the search field.
    QColor highlight;
    QColor highlightedText;
    QColor highlightedQuiet;
    QColor openSubmenu; ///< Behind the row whose submenu is open.
    QColor scrollBar;
};

} // namespace quorvel
