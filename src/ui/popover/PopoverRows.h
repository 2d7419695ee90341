#pragma once

#include "menu/MenuItem.h"
#include "ui/popover/PopoverMetrics.h"

#include <vector>

namespace quorvel {

/// The items of one menu as rows, with their places from top to bottom. The search field is none
/// of them, and separators stand only between rows.
class PopoverRows {
public:
    static constexpr int none = -1;

    void set(const QList<MenuItem>& items);

    /// Gives each row its place; `width` is that of a text in a row.
    void layOut(const PopoverMetrics& metrics, int width);

    /// Gives every submenu of this identifier its items, at any depth.
    bool fillSubmenu(const QString& identifier, const QList<MenuItem>& content);

    const QList<MenuItem>& items() const { return m_items; }
    int count() const { return int(m_rows.size()); }
    const MenuItem& item(int row) const { return m_items[m_rows[std::size_t(row)].item]; }
    int top(int row) const { return m_rows[std::size_t(row)].top; }
    int height(int row) const { return m_rows[std::size_t(row)].height; }
    int height() const { return m_height; }

    /// The row at this place, or none.
    int rowAt(int y) const;

    /// Whether the highlight can stand on it.
    bool isSelectable(int row) const;

    /// Whether it only says that there is nothing, and the list has no other item.
    bool isEmptyState(int row) const;

    /// Whether some row shows a symbol, a colour or a picture; whether some shows a picture.
    bool hasIcons() const { return m_hasIcons; }
    bool hasPictures() const { return m_hasPictures; }

    /// The next selectable row after `from` in the direction of `step` (1 or -1), around the ends;
    /// none when there is none at all.
    int next(int from, int step) const;

    /// Below the search field, if there is one: what stands above it is no result.
    int first() const { return next(m_start - 1, 1); }
    int last() const { return next(count(), -1); }

    /// The first selectable row that pastes something, or none.
    int firstPaste() const;

    /// The selectable row that is nearest to this place.
    int nearest(int y) const;

    /// The first selectable row of the next section (1) or the one before (-1), around the ends.
    int nextSection(int from, int step) const;

    /// How many rows before this one stand for the same thing, and the row that then stands for it
    /// again: a clip can be in several sections.
    int occurrence(int row) const;
    int find(const MenuItem& item, int occurrence) const;

private:
    struct Row {
        qsizetype item;
        int top = 0;
        int height = 0;
    };

    void add(qsizetype index);
    int heightOf(int row, const PopoverMetrics& metrics, int width) const;

    QList<MenuItem> m_items;
    std::vector<Row> m_rows;
    std::vector<int> m_sections; ///< The first selectable row of each.
    int m_start = 0;             ///< The first row below the search field.
    int m_ordinary = 0;          ///< How many items there are,
    int m_last = none;           ///< and the last of them.
    int m_height = 0;
    bool m_hasIcons = false;
    bool m_hasPictures = false;
};

} // namespace quorvel
