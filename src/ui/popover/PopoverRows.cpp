#include "ui/popover/PopoverRows.h"

#include "ui/MenuText.h"
#include "ui/MenuTree.h"

#include <QFontMetrics>

#include <algorithm>

namespace quorvel {

namespace {

int textBoxHeight(const QString& text, const PopoverMetrics& metrics, int width) {
    const QString lines = wrappedText(
        text, metrics.title, width - 2 * PopoverMetrics::edge - 4 * PopoverMetrics::rowPadding,
        PopoverMetrics::mostTextBoxLines);
    return (int(lines.count(u'\n')) + 1) * metrics.titleHeight + 4 * PopoverMetrics::rowPadding;
}

int heightOf(const MenuItem& item, const PopoverMetrics& metrics, int width) {
    switch (item.kind) {
    case MenuItemKind::header:
    case MenuItemKind::hint:
        return metrics.header;
    case MenuItemKind::separator:
        return PopoverMetrics::separator;
    case MenuItemKind::textBox:
        return textBoxHeight(item.title, metrics, width);
    case MenuItemKind::searchField:
        return 0;
    case MenuItemKind::ordinary:
        return item.detail.isEmpty() ? metrics.singleRow : metrics.doubleRow;
    }
    Q_UNREACHABLE();
}

} // namespace

void PopoverRows::set(const QList<MenuItem>& items, const PopoverMetrics& metrics, int width) {
    m_rows.clear();
    m_sectionStarts.clear();
    m_height = 0;
    bool isSectionDue = true;
    const MenuItem* separator = nullptr;
    for (const MenuItem& item : items) {
        if (item.kind == MenuItemKind::searchField)
            continue;
        if (item.kind == MenuItemKind::separator) {
            separator = &item;
            continue;
        }
        if (separator && !m_rows.empty()) {
            m_rows.push_back({*separator, m_height, PopoverMetrics::separator});
            m_height += PopoverMetrics::separator;
        }
        isSectionDue = isSectionDue || separator || item.kind == MenuItemKind::header;
        separator = nullptr;
        m_rows.push_back({item, m_height, heightOf(item, metrics, width)});
        m_height += m_rows.back().height;
        if (isSectionDue && m_rows.back().isSelectable()) {
            m_sectionStarts.push_back(count() - 1);
            isSectionDue = false;
        }
    }
}

int PopoverRows::rowAt(int y) const {
    if (y < 0 || y >= m_height)
        return none;
    const auto after = std::upper_bound(m_rows.begin(), m_rows.end(), y,
                                        [](int place, const auto& row) { return place < row.top; });
    return int(after - m_rows.begin()) - 1;
}

int PopoverRows::next(int from, int step) const {
    const int direction = step < 0 ? -1 : 1;
    int row = from;
    int found = none;
    for (int left = std::abs(step); left > 0; --left) {
        int tries = count();
        do {
            row += direction;
            if (row >= count())
                row = 0;
            else if (row < 0)
                row = count() - 1;
        } while (--tries >= 0 && count() > 0 && !at(row).isSelectable());
        if (tries < 0 || count() == 0)
            return none;
        found = row;
    }
    return found;
}

int PopoverRows::start() const {
    for (int row = 0; row < count(); ++row)
        if (at(row).isSelectable() && at(row).item.tag == pasteItemTag)
            return row;
    return first();
}

int PopoverRows::sectionOf(int row) const {
    const auto after = std::upper_bound(m_sectionStarts.begin(), m_sectionStarts.end(), row);
    return int(after - m_sectionStarts.begin()) - 1;
}

int PopoverRows::nextSection(int from, int step) const {
    const int sections = int(m_sectionStarts.size());
    if (sections == 0)
        return none;
    const int section = from == none ? (step > 0 ? 0 : sections - 1) : sectionOf(from) + step;
    return m_sectionStarts[std::size_t((section + sections) % sections)];
}

int PopoverRows::find(const MenuItem& item) const {
    for (int row = 0; row < count(); ++row)
        if (at(row).isSelectable() && isSameItem(at(row).item, item))
            return row;
    return none;
}

int PopoverRows::findSubmenu(const QString& identifier) const {
    for (int row = 0; row < count(); ++row)
        if (!identifier.isEmpty() && at(row).item.identifier == identifier)
            return row;
    return none;
}

} // namespace quorvel
