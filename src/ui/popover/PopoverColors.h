#pragma once

#include <QColor>
#include <QPalette>

namespace quorvel {

/// The colours of the popover, all taken from the desktop's palette, light or dark.
struct PopoverColors {
    explicit PopoverColors(const QPalette& palette);

    bool isDark;
    QColor ground;
    QColor border;
    QColor text;
    QColor quiet; ///< For what is said in passing; still read well.
    QColor faint; ///< For what cannot be chosen.
    QColor line;
    QColor field; ///< Behind what is typed, texts and icons.
    QColor highlight;
    QColor highlightedText;
    QColor highlightedQuiet;
    QColor highlightedField;
    QColor trail; ///< Behind the row whose submenu has the highlight.
    QColor scrollBar;
    QColor heldScrollBar;
};

} // namespace quorvel
