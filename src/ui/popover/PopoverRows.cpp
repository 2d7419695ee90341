#include "ui/popover/PopoverRows.h"

#include "ui/MenuText.h"
#include "ui/MenuTree.h"

#include <algorithm>

namespace quorvel {

namespace {

int textBoxHeight(const QString& text, const PopoverMetrics& metrics, int width) {
    const QString lines = wrappedText(text, metrics.title, width, PopoverMetrics::mostTextLines);
    return (int(lines.count(u'\n')) + 1) * metrics.titleHeight + 4 * PopoverMetrics::padding;
}

} // namespace

void PopoverRows::set(const QList<MenuItem>& items) {
    m_items = items;
    m_rows.clear();
    m_sections.clear();
    m_start = m_ordinary = 0;
    m_last = none;
    m_hasIcons = m_hasPictures = false;
    qsizetype separator = -1;
    bool startsSection = true;
    for (qsizetype index = 0; index < m_items.size(); ++index) {
        const MenuItem& item = std::as_const(m_items)[index];
        if (item.kind == MenuItemKind::searchField) {
            m_start = count();
            continue;
        }
        if (item.kind == MenuItemKind::separator) {
            separator = index;
            continue;
        }
        startsSection = startsSection || separator >= 0 || item.kind == MenuItemKind::header;
        const qsizetype before = std::exchange(separator, -1);
        if (before >= 0 && !m_rows.empty())
            m_rows.push_back({.item = before});
        add(index);
        if (startsSection && isSelectable(count() - 1)) {
            m_sections.push_back(count() - 1);
            startsSection = false;
        }
    }
}

void PopoverRows::add(qsizetype index) {
    const MenuItem& item = std::as_const(m_items)[index];
    m_rows.push_back({.item = index});
    if (item.kind == MenuItemKind::ordinary) {
        ++m_ordinary;
        m_last = count() - 1;
    }
    m_hasPictures = m_hasPictures || !item.imagePNGData.isEmpty();
    m_hasIcons = m_hasIcons || m_hasPictures ||
                 (item.kind == MenuItemKind::ordinary &&
                  !(item.symbol.isEmpty() && item.colorName.isEmpty()));
}

void PopoverRows::layOut(const PopoverMetrics& metrics, int width) {
    m_height = 0;
    for (int row = 0; row < count(); ++row) {
        Row& placed = m_rows[std::size_t(row)];
        placed.top = m_height;
        placed.height = heightOf(row, metrics, width);
        m_height += placed.height;
    }
}

int PopoverRows::heightOf(int row, const PopoverMetrics& metrics, int width) const {
    const MenuItem& shown = item(row);
    switch (shown.kind) {
    case MenuItemKind::header:
        return metrics.header;
    case MenuItemKind::separator:
        return PopoverMetrics::separator;
    case MenuItemKind::textBox:
        return textBoxHeight(shown.title, metrics, width);
    case MenuItemKind::hint:
        return metrics.detailHeight + 14;
    case MenuItemKind::searchField:
    case MenuItemKind::ordinary:
        break;
    }
    if (isEmptyState(row) && !shown.symbol.isEmpty())
        return metrics.emptyState;
    return shown.detail.isEmpty() && shown.imagePNGData.isEmpty() ? metrics.singleRow
                                                                  : metrics.doubleRow;
}

bool PopoverRows::fillSubmenu(const QString& identifier, const QList<MenuItem>& content) {
    return fillSubmenuItems(m_items, identifier, content);
}

int PopoverRows::rowAt(int y) const {
    if (y < 0 || y >= m_height)
        return none;
    const auto after = std::upper_bound(m_rows.begin(), m_rows.end(), y,
                                        [](int place, const Row& row) { return place < row.top; });
    return int(after - m_rows.begin()) - 1;
}

bool PopoverRows::isSelectable(int row) const {
    if (row < 0 || row >= count() || !item(row).enabled)
        return false;
    const MenuItem& shown = item(row);
    const bool isHintToChoose =
        shown.kind == MenuItemKind::hint && shown.action != MenuAction::none;
    return shown.kind == MenuItemKind::ordinary || isHintToChoose;
}

bool PopoverRows::isEmptyState(int row) const {
    return m_ordinary == 1 && row == m_last && !item(row).enabled;
}

int PopoverRows::next(int from, int step) const {
    int row = from;
    for (int tries = 0; tries < count(); ++tries) {
        row = (row + step + count()) % count();
        if (isSelectable(row))
            return row;
    }
    return none;
}

int PopoverRows::nearest(int y) const {
    const int start = rowAt(std::clamp(y, 0, std::max(0, m_height - 1)));
    for (int distance = 0; distance < count(); ++distance) {
        if (isSelectable(start + distance))
            return start + distance;
        if (isSelectable(start - distance))
            return start - distance;
    }
    return none;
}

int PopoverRows::nextSection(int from, int step) const {
    const int sections = int(m_sections.size());
    if (sections == 0)
        return none;
    const int start = from == none ? m_start - 1 : from;
    const auto after = std::upper_bound(m_sections.begin(), m_sections.end(), start);
    const int section = int(after - m_sections.begin()) - 1; // -1 before the first one.
    if (section < 0)
        return step > 0 ? m_sections.front() : m_sections.back();
    return m_sections[std::size_t((section + step + sections) % sections)];
}

int PopoverRows::occurrence(int row) const {
    int earlier = 0;
    for (int other = 0; other < row; ++other)
        earlier += isSelectable(other) && isSameItem(item(other), item(row));
    return earlier;
}

int PopoverRows::find(const MenuItem& wanted, int occurrence) const {
    int found = none;
    for (int row = 0; row < count() && occurrence >= 0; ++row) {
        if (!isSelectable(row) || !isSameItem(item(row), wanted))
            continue;
        found = row;
        --occurrence;
    }
    return found;
}

int PopoverRows::firstPaste() const {
    for (int row = 0; row < count(); ++row)
        if (isSelectable(row) && item(row).tag == pasteItemTag)
            return row;
    return none;
}

} // namespace quorvel
