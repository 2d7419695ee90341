#pragma once

#include "menu/MenuItem.h"
#include "ui/popover/PopoverMetrics.h"

#include <vector>

namespace quorvel {

struct PopoverRow {
    MenuItem item;
    int top = 0; ///< Points below the first row's top.
    int height = 0;

    /// Whether the highlight can stand on it.
    bool isSelectable() const { return item.enabled && item.kind == MenuItemKind::ordinary; }
};

/// The items of one menu as rows with their places. The search field is none of them, and no
/// separator stands beside another one or at an end.
class PopoverRows {
public:
    static constexpr int none = -1;

    void set(const QList<MenuItem>& items, const PopoverMetrics& metrics, int width);

    int count() const { return int(m_rows.size()); }
    const PopoverRow& at(int row) const { return m_rows[std::size_t(row)]; }

    /// Points.
    int height() const { return m_height; }

    /// The row at this place, or none.
    int rowAt(int y) const;

    /// The selectable row that comes `step` selectable rows after `from` (before it, for a negative
    /// one), around the ends; none when there is none.
    int next(int from, int step) const;

    int first() const { return next(none, 1); }
    int last() const { return next(count(), -1); }

    /// Where the highlight begins: on the first row that pastes something, else on the first one.
    int start() const;

    /// The first selectable row of the next or previous section.
    int nextSection(int from, int step) const;

    /// The row that stands for the same thing, or none.
    int find(const MenuItem& item) const;
    int findSubmenu(const QString& identifier) const;

    /// Gives a row its submenu.
    void fill(int row, const QList<MenuItem>& items) {
        m_rows[std::size_t(row)].item.submenu = items;
    }

private:
    int sectionOf(int row) const;

    std::vector<PopoverRow> m_rows;
    std::vector<int> m_sectionStarts; ///< Rows at which a section begins, ascending.
    int m_height = 0;
};

} // namespace quorvel
