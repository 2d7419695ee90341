// The search field of a menu: where it stands, what it gets, what is highlighted for it.
#include "ui/MenuRowLook.h"
#include "ui/MenuText.h"
#include "ui/MenuWidget.h"
#include "ui/SearchField.h"

#include <algorithm>

namespace quorvel {

bool MenuWidget::type(QKeyEvent& press) {
    if (!m_searchIndex)
        return false;
    const bool isSubmenuOpen = std::any_of(m_rows.begin(), m_rows.end(), [](const Row& row) {
        return row.submenu && row.submenu->isVisible();
    });
    using Submenu = SearchField::Submenu;
    return m_search->field().take(press, isSubmenuOpen ? Submenu::open : Submenu::closed);
}

void MenuWidget::addSearchRow() {
    m_search = new SearchRow(this, m_context.icon({.symbol = QStringLiteral("magnifyingglass")}),
                             m_context.pasteboard);
    connect(&m_search->field(), &SearchField::changedByUser, this, &MenuWidget::searchChanged);
}

/// The widget row stands before the row of its item, which is hidden. It is moved only when it has
/// to be: that takes the input focus from it.
void MenuWidget::placeSearchRow(size_t index) {
    if (!m_search)
        addSearchRow();
    const Row& row = m_rows[index];
    const QList<QAction*> all = actions();
    if (const qsizetype place = all.indexOf(row.action); place == 0 || all[place - 1] != m_search)
        insertAction(row.action, m_search);
    m_search->setData(qulonglong(index));
    m_search->setLeastWidth(m_wideRow - m_keyColumn);
    m_search->field().setPlaceholderText(row.item.title);
    if (!isVisible() || !m_search->isVisible())
        m_search->field().showText(row.item.representedObject);
    m_search->setShown(true);
    m_searchIndex = index;
}

/// The menu would move the focus on from a field that hides.
void MenuWidget::settleSearchRow() {
    if (!m_search)
        return;
    SearchField& field = m_search->field();
    setFocusProxy(m_searchIndex ? &field : nullptr);
    if (m_searchIndex)
        return;
    field.clearFocus();
    field.showText({});
    m_search->setShown(false);
}

/// The toolkit gives the focus to the menu whenever the highlight moves.
void MenuWidget::focusSearchField() {
    if (m_searchIndex && isVisible() && !m_search->field().hasFocus())
        m_search->field().setFocus(Qt::PopupFocusReason);
}

bool MenuWidget::awaitsAnswer() const {
    return m_searchIndex && m_search->field().text() != m_answeredQuery;
}

bool MenuWidget::takesNewQuery(const QList<MenuItem>& items) {
    const auto search = std::find_if(items.begin(), items.end(), [](const MenuItem& item) {
        return isKind(item, MenuItemKind::searchField);
    });
    const QString query = search != items.end() ? search->representedObject : QString();
    const bool isTyped = isVisible() && m_searchIndex;
    const QString answered = isTyped ? m_search->field().text() : query;
    const bool isAnother = answered != m_answeredQuery || query != m_itemsQuery;
    m_answeredQuery = answered;
    m_itemsQuery = query;
    return isAnother && isTyped;
}

/// What fills the width of the menu. The toolkit adds the column of the keys to each row.
void MenuWidget::measure(const QList<MenuItem>& items) {
    const bool isNeeded = std::any_of(items.begin(), items.end(), [](const MenuItem& item) {
        return isKind(item, MenuItemKind::searchField) || isKind(item, MenuItemKind::textBox);
    });
    if (!isNeeded)
        return;
    const int asked = isVisible() ? width() : measuredMenuWidth(items, fontMetrics(), mostWideRow);
    m_wideRow = std::clamp(asked, leastWideRow, mostWideRow);
    m_keyColumn = 0;
    for (const MenuItem& item : items) {
        if (!item.keyEquivalent.key.isEmpty())
            m_keyColumn =
                std::max(m_keyColumn,
                         fontMetrics().horizontalAdvance(m_context.keyText(item.keyEquivalent)));
    }
}

/// Return then takes what is found first, and nothing when nothing is found.
void MenuWidget::highlightFirstFound() {
    for (const Row& row : m_rows)
        if (row.submenu)
            row.submenu->hide();
    const auto first = std::find_if(
        m_rows.begin() + ptrdiff_t(m_searchIndex.value_or(0)), m_rows.end(),
        [](const Row& row) { return row.action->isVisible() && row.action->isEnabled(); });
    const bool isSearching = !m_itemsQuery.trimmed().isEmpty();
    if (first == m_rows.end() || (isSearching && first->item.tag != pasteItemTag))
        setActiveAction(nullptr);
    else if (first->action != activeAction())
        highlight(*first);
}

} // namespace quorvel
