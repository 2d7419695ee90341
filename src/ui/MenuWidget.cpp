#include "ui/MenuWidget.h"

#include "ui/MenuPlacement.h"
#include "ui/MenuRowLook.h"
#include "ui/MenuStyle.h"
#include "ui/MenuText.h"
#include "ui/MenuTree.h"

#include <QActionEvent>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QScopedValueRollback>
#include <QStyleOptionMenuItem>
#include <QToolTip>

#include <algorithm>

namespace quorvel {

namespace {

const QList<MenuItem>& placeholder() {
    static const QList<MenuItem> items{MenuItem::disabled(QStringLiteral("\u2026"))};
    return items;
}

constexpr int mostTextLines = 8;
constexpr qsizetype mostKnownTitles = 500;

} // namespace

MenuWidget::MenuWidget(const MenuContext& context, QStyle* style, QWidget* parent)
    : QMenu(parent)
    , m_context(context) {
    setStyle(style);
}

void MenuWidget::setItems(const QList<MenuItem>& items) {
    const QAction* highlighted = activeAction();
    const MenuItem highlightedItem = highlighted ? rowOf(*highlighted).item : MenuItem{};
    const bool isNewQuery = takesNewQuery(items);
    m_awaitsFrame = m_awaitsFrame || isVisible();
    measure(items);
    {
        const QScopedValueRollback filling(m_isFilling, true);
        m_hasIcons = false;
        m_searchIndex.reset();
        while (m_rows.size() < size_t(items.size()))
            addRow();
        for (size_t index = 0; index < size_t(items.size()); ++index)
            fill(index, items[qsizetype(index)]);
        std::for_each(m_rows.begin() + items.size(), m_rows.end(),
                      [this](Row& row) { empty(row); });
        settleSearchRow();
    }
    layOutAgain();
    focusSearchField();
    if (isNewQuery)
        highlightFirstFound();
    else if (highlighted && isVisible())
        highlightAgain(highlightedItem, highlighted);
}

void MenuWidget::fillSubmenu(const QString& identifier, const QList<MenuItem>& items) {
    for (Row& row : m_rows) {
        const bool isMeant = row.item.identifier == identifier;
        if (isMeant)
            row.item.submenu = items;
        else if (!fillSubmenuItems(row.item.submenu, identifier, items))
            continue;
        if (row.submenu && row.submenu->isVisible())
            isMeant ? row.submenu->setItems(items) : row.submenu->fillSubmenu(identifier, items);
    }
}

void MenuWidget::release() {
    const QScopedValueRollback filling(m_isFilling, true);
    for (Row& row : m_rows) {
        empty(row);
        if (row.submenu)
            row.submenu->deleteLater();
        row.submenu = nullptr;
    }
    m_titles.clear();
    m_searchIndex.reset();
    settleSearchRow();
}

void MenuWidget::popUpAt(QPoint pointer, const PopupScreen& screen) {
    m_awaitsFrame = true;
    ensurePolished();
    setMinimumWidth(0);
    setScreen(screen.screen());
    const QSize size = sizeHint();
    const MenuPlace place =
        placedAtPointer(size, pointer, screen.limits(), QGuiApplication::layoutDirection());
    m_upperEdge.reset();
    m_lowerEdge.reset();
    m_rightEdge.reset();
    if (place.topLeft.x() == pointer.x() - size.width())
        m_rightEdge = pointer.x() - 1;
    if (place.isAbovePointer)
        m_lowerEdge = place.topLeft.y() + size.height() - 1;
    else
        m_upperEdge = place.topLeft.y();
    popup(place.topLeft);
    focusSearchField();
    // A click beside the menu only closes it: without this, a click on our tray icon would close
    // the menu and open it again.
    setAttribute(Qt::WA_NoMouseReplay);
}

/// The toolkit remembers which screen a menu was shown on, uses it again at the next showing, and
/// does not notice that it has gone. Without a window it lets itself be told another one.
void MenuWidget::forgetScreen() {
    destroy();
    setScreen(QGuiApplication::primaryScreen());
}

void MenuWidget::refreshPictures() {
    const QScopedValueRollback filling(m_isFilling, true);
    for (const Row& row : m_rows) {
        if (!row.item.imagePNGData.isEmpty())
            row.action->setIcon(m_context.icon(row.item));
        if (row.submenu)
            row.submenu->refreshPictures();
    }
    update();
}

std::optional<MenuItem>
MenuWidget::find(const std::function<bool(const MenuItem&)>& matches) const {
    for (const Row& row : m_rows) {
        if (auto found = findItem({row.item}, matches))
            return found;
    }
    return std::nullopt;
}

void MenuWidget::initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const {
    QMenu::initStyleOption(option, action);
    option->maxIconWidth = m_hasIcons ? MenuStyle::iconColumn : 0;
    const Row& row = rowOf(*action);
    if (isKind(row.item, MenuItemKind::header))
        option->state |= MenuStyle::captionState;
    if (isKind(row.item, MenuItemKind::hint))
        makeQuiet(option->palette);
    if (!isKind(row.item, MenuItemKind::textBox))
        return;
    option->state |= MenuStyle::textState;
    option->text = row.wrapped;
    option->reservedShortcutWidth = m_keyColumn;
}

/// Each change of a row would lay out the whole menu; while filling, one layout follows at the end.
void MenuWidget::actionEvent(QActionEvent* event) {
    if (!m_isFilling || event->type() != QEvent::ActionChanged)
        QMenu::actionEvent(event);
}

void MenuWidget::keyPressEvent(QKeyEvent* event) {
    if (!m_context.takesKey(*event) && !m_context.typed(*event))
        shownMenu().QMenu::keyPressEvent(event);
}

/// This, or the menu before it: the results that the press waited for close a submenu.
MenuWidget& MenuWidget::shownMenu() {
    auto* before = qobject_cast<MenuWidget*>(parentWidget());
    return isVisible() || !before ? *this : before->shownMenu();
}

void MenuWidget::keyReleaseEvent(QKeyEvent* event) {
    m_context.keyReleased(*event);
    QMenu::keyReleaseEvent(event);
}

void MenuWidget::paintEvent(QPaintEvent* event) {
    QMenu::paintEvent(event);
    if (!std::exchange(m_awaitsFrame, false))
        return;
    QMetaObject::invokeMethod(this, &MenuWidget::painted, Qt::QueuedConnection);
}

bool MenuWidget::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QMenu::event(event);
    showToolTip(*static_cast<QHelpEvent*>(event));
    return true;
}

void MenuWidget::addRow() {
    const size_t index = m_rows.size();
    auto* action = new QAction(this);
    action->setData(qulonglong(index));
    action->setIconVisibleInMenu(true);
    connect(action, &QAction::triggered, this,
            [this, index] { m_context.chosen(m_rows[index].item); });
    connect(action, &QAction::hovered, this, [this, index] { prepareSubmenu(index); });
    m_rows.push_back({.action = action});
    addAction(action);
}

void MenuWidget::fill(size_t index, const MenuItem& item) {
    Row& row = m_rows[index];
    const bool wasSame = isSameItem(row.item, item);
    const bool looksSame = row.action->isVisible() && looksAlike(row.item, item);
    row.item = item;
    if (!looksSame)
        draw(row);
    m_hasIcons = m_hasIcons || !row.action->icon().isNull();
    if (isKind(item, MenuItemKind::searchField))
        placeSearchRow(index);
    if (item.hasSubmenu())
        attachSubmenu(index);
    else
        row.action->setMenu(static_cast<QMenu*>(nullptr));
    refreshOpenSubmenu(index, wasSame);
}

void MenuWidget::draw(Row& row) {
    const MenuItem& item = row.item;
    const QString keys = m_context.keyText(item.keyEquivalent);
    const QString title = shownTitle(item.title);
    row.action->setText(keys.isEmpty() ? title : title + QLatin1Char('\t') + keys);
    row.action->setFont(rowFont(item, font()));
    row.action->setEnabled(isEnabledRow(item));
    row.action->setSeparator(isKind(item, MenuItemKind::separator));
    row.action->setIcon(m_context.icon(item));
    row.action->setVisible(!isKind(item, MenuItemKind::searchField));
    const int textWidth = m_wideRow - 2 * MenuStyle::sideMargin;
    row.wrapped = isKind(item, MenuItemKind::textBox)
                      ? wrappedText(item.title, font(), textWidth, mostTextLines)
                      : QString();
}

/// Measuring titles is the greater part of filling rows, and filters move the same ones about.
QString MenuWidget::shownTitle(const QString& title) {
    if (const auto known = m_titles.constFind(title); known != m_titles.constEnd())
        return *known;
    if (m_titles.size() >= mostKnownTitles)
        m_titles.clear();
    return *m_titles.insert(title, menuTitle(title, fontMetrics(), MenuStyle::mostTitleWidth));
}

void MenuWidget::empty(Row& row) {
    if (row.submenu)
        row.submenu->hide();
    row.item = {};
    row.wrapped.clear();
    row.action->setMenu(static_cast<QMenu*>(nullptr));
    row.action->setIcon({});
    row.action->setText({});
    row.action->setVisible(false);
}

/// Most submenus are never looked at; until then one empty menu stands for them all.
void MenuWidget::attachSubmenu(size_t index) {
    const Row& row = m_rows[index];
    if (row.submenu || row.action == activeAction())
        return makeSubmenu(index);
    if (!m_unopenedSubmenu)
        m_unopenedSubmenu = new QMenu(this);
    row.action->setMenu(m_unopenedSubmenu);
}

/// The highlight has come to the row; the toolkit opens its submenu next.
void MenuWidget::prepareSubmenu(size_t index) {
    if (!m_isFilling && m_rows[index].item.hasSubmenu())
        makeSubmenu(index);
}

void MenuWidget::makeSubmenu(size_t index) {
    Row& row = m_rows[index];
    if (!row.submenu) {
        row.submenu = new MenuWidget(m_context, style(), this);
        connect(row.submenu, &QMenu::aboutToShow, this, [this, index] { showSubmenuItems(index); });
    }
    const QScopedValueRollback filling(m_isFilling, true);
    row.submenu->setFocusProxy(focusProxy());
    row.action->setMenu(row.submenu);
}

/// Whoever fills a lazy submenu may do so at once or later.
void MenuWidget::showSubmenuItems(size_t index) {
    if (m_rows[index].submenu->isVisible())
        return; // It is only laid out again.
    if (m_rows[index].item.isLazy())
        m_context.submenuOpening(m_rows[index].item.identifier);
    const Row& row = m_rows[index];
    row.submenu->setItems(row.item.submenu.isEmpty() ? placeholder() : row.item.submenu);
}

void MenuWidget::refreshOpenSubmenu(size_t index, bool isSameItem) {
    const Row& row = m_rows[index];
    if (!row.submenu || !row.submenu->isVisible())
        return;
    if (!isSameItem || !row.item.hasSubmenu())
        row.submenu->hide();
    else if (!row.item.submenu.isEmpty())
        row.submenu->setItems(row.item.submenu);
    else // What it shows stays until it is filled anew.
        m_context.submenuOpening(row.item.identifier);
}

/// An open menu grows away from the pointer where it was opened, and gets its new place in one
/// step.
void MenuWidget::layOutAgain() {
    if (m_rows.empty())
        return;
    const QSize before = size();
    if (isVisible())
        setFixedSize(before); // The toolkit would resize it where it is.
    QActionEvent changed(QEvent::ActionChanged, m_rows.front().action);
    QMenu::actionEvent(&changed);
    if (!isVisible())
        return;
    QToolTip::hideText();
    const bool isMainMenu = m_upperEdge || m_lowerEdge; // It must not flutter while the user types.
    setMinimumSize(isMainMenu ? before.width() : 0, 0);
    setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    const QRect limits = screen()->availableGeometry(); // A submenu may be on another one.
    const QRect place = placeOfNewSize();
    const QRect shown = movedInto(limits, place);
    if (std::max(before.height(), place.height()) >= limits.height())
        popup(shown.topLeft()); // Sets up anew what scrolls a menu that is too tall.
    else
        setGeometry(shown);
}

QRect MenuWidget::placeOfNewSize() const {
    QRect place(pos(), sizeHint());
    if (m_rightEdge)
        place.moveRight(*m_rightEdge);
    if (m_lowerEdge)
        place.moveBottom(*m_lowerEdge);
    else
        place.moveTop(m_upperEdge.value_or(place.top()));
    return place;
}

/// Without opening the submenu of its row.
void MenuWidget::highlight(const Row& row) {
    const QScopedValueRollback filling(m_isFilling, true);
    row.action->setMenu(static_cast<QMenu*>(nullptr));
    setActiveAction(row.action);
    if (row.item.hasSubmenu())
        makeSubmenu(size_t(&row - m_rows.data()));
}

void MenuWidget::highlightAgain(const MenuItem& item, const QAction* previous) {
    if (previous->isVisible() && isSameItem(rowOf(*previous).item, item))
        return;
    const auto same = std::find_if(m_rows.begin(), m_rows.end(),
                                   [&](const Row& row) { return isSameItem(row.item, item); });
    if (same != m_rows.end() && same->action->isEnabled()) {
        if (same->action != previous)
            highlight(*same);
    } else if (rowOf(*previous).item.kind != MenuItemKind::ordinary || !previous->isEnabled() ||
               !previous->isVisible()) {
        setActiveAction(nullptr);
    }
}

void MenuWidget::showToolTip(const QHelpEvent& help) {
    const QAction* action = actionAt(help.pos());
    const MenuItem item = action ? rowOf(*action).item : MenuItem{};
    const QString text = toolTipMarkup(item.toolTip, item.detail);
    if (text.isEmpty())
        QToolTip::hideText();
    else
        showBeside(*this, actionGeometry(const_cast<QAction*>(action)), text);
}

const MenuWidget::Row& MenuWidget::rowOf(const QAction& action) const {
    return m_rows[size_t(action.data().toULongLong())];
}

} // namespace quorvel
