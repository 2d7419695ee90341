#pragma once

#include <QFont>

namespace quorvel {

/// Sizes of the popover in points; heights follow the desktop's font.
struct PopoverMetrics {
    static constexpr int width = 420;
    static constexpr int mostHeight = 660;
    static constexpr int submenuWidth = 340;
    static constexpr int rounding = 9;
    static constexpr int edge = 6;        ///< Between the window's border and the rows.
    static constexpr int rowPadding = 8;  ///< Between a row's ends and what stands in it.
    static constexpr int iconColumn = 34; ///< Wide enough for a thumbnail.
    static constexpr int iconSize = 18;
    static constexpr int gap = 9; ///< Between icon, title and what stands at the end.
    static constexpr int separator = 11;
    static constexpr int searchHeight = 52;
    static constexpr int mostTextBoxLines = 8;

    explicit PopoverMetrics(const QFont& base);

    QFont title;
    QFont detail;
    QFont caption;
    int titleHeight;
    int detailHeight;
    int singleRow;
    int doubleRow;
    int header;
};

} // namespace quorvel
