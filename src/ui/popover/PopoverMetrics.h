#pragma once

#include <QFont>
#include <QSize>

namespace quorvel {

/// Sizes of the popover in points; what holds text follows the desktop's font.
struct PopoverMetrics {
    static constexpr int width = 420;
    static constexpr int mostHeight = 660;
    static constexpr int leastSubmenuWidth = 230;
    static constexpr int mostSubmenuWidth = 380;
    static constexpr int shadow = 24;   ///< Room around a panel where windows are blended.
    static constexpr int rounding = 12; ///< Of a panel where windows are blended.
    static constexpr int rowRounding = 7;
    static constexpr int edge = 6;    ///< Between a panel's border and its rows.
    static constexpr int padding = 8; ///< Between a row's ends and what stands in it.
    static constexpr int gap = 10;    ///< Between the things in a row.
    static constexpr int iconSize = 18;
    static constexpr int markSize = 13; ///< Of pins and chevrons.
    static constexpr int hintMark = 34; ///< The end of a hint's row, where it is dismissed.
    static constexpr QSize picture{40, 28};
    static constexpr int narrowIcons = 22; ///< The column of icons where no pictures stand.
    static constexpr int separator = 11;
    static constexpr int mostTextLines = 8;

    explicit PopoverMetrics(const QFont& base);

    QFont title;
    QFont detail;
    QFont caption;
    QFont search;
    int titleHeight;
    int detailHeight;
    int captionHeight;
    int singleRow;
    int doubleRow;
    int header;
    int emptyState; ///< The only row of a list, saying that there is nothing.
    int searchField;
    int searchArea; ///< The field with what is around it.
};

} // namespace quorvel
