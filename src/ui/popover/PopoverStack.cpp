#include "ui/popover/PopoverStack.h"

#include <QGuiApplication>

#include <algorithm>

namespace quorvel {

namespace {

const QList<MenuItem>& placeholder() {
    static const QList<MenuItem> items{MenuItem::disabled(QStringLiteral("\u2026"))};
    return items;
}

QString queryOf(const QList<MenuItem>& items) {
    const auto search = std::find_if(items.begin(), items.end(), [](const MenuItem& item) {
        return item.kind == MenuItemKind::searchField;
    });
    return search == items.end() ? QString() : search->representedObject;
}

} // namespace

PopoverStack::PopoverStack(const PopoverContext& context, const PopupScreen& screen)
    : m_context(context)
    , m_screen(screen) {}

/// The submenus first: the first panel is their parent.
PopoverStack::~PopoverStack() {
    disconnect();
    m_depth = 0;
    while (!m_panels.empty())
        m_panels.pop_back();
}

void PopoverStack::open(const QList<MenuItem>& items, QPoint pointer) {
    useShape(isComposited() ? PanelFrame::Shape::blended : PanelFrame::Shape::square);
    PopoverPanel& root = panel(0);
    root.setItems(items);
    root.list().highlight(root.list().rows().firstPaste(), Reveal::no);
    root.list().scrollToTop();
    root.list().expectFrame();
    m_itemsQuery = queryOf(items);
    m_answeredQuery = root.searchField() ? root.searchField()->text() : QString();
    m_depth = 1;
    setLevel(0);
    root.setPlace(m_anchor.open(root.wantedSize(), pointer, m_screen.limits(),
                                QGuiApplication::layoutDirection()));
    // A click beside the popover only closes it: without this, a click on our tray icon would
    // close it and open it again.
    root.setAttribute(Qt::WA_NoMouseReplay);
    root.show();
    if (root.searchField())
        root.searchField()->setFocus(Qt::PopupFocusReason);
}

/// Panels of another shape are other windows.
void PopoverStack::useShape(PanelFrame::Shape shape) {
    if (!m_panels.empty() && panel(0).shape() == shape)
        return;
    while (!m_panels.empty())
        m_panels.pop_back();
    addPanel(shape);
    panel(0).setName(QGuiApplication::applicationDisplayName());
    panel(0).setWindowTitle(QGuiApplication::applicationDisplayName());
    connect(&panel(0), &PopoverPanel::searchChanged, this, &PopoverStack::searchChanged);
    connect(&panel(0), &PopoverPanel::hidden, this, &PopoverStack::hide);
    connect(&list(0), &PopoverList::painted, this, &PopoverStack::painted);
}

void PopoverStack::addPanel(PanelFrame::Shape shape) {
    PopoverPanel* root = m_panels.empty() ? nullptr : m_panels.front().get();
    m_panels.push_back(std::make_unique<PopoverPanel>(m_context, shape, root));
    m_sides.resize(m_panels.size());
    const PopoverPanel* added = m_panels.back().get();
    connect(added, &PopoverPanel::keyPressed, this, &PopoverStack::keyPressed);
    connect(added, &PopoverPanel::keyReleased, this, &PopoverStack::keyReleased);
    connect(added, &PopoverPanel::pointed, this, &PopoverStack::pointed);
    connect(&added->list(), &PopoverList::highlightChanged, this, &PopoverStack::changed);
    connect(&added->list(), &PopoverList::scrolled, this, &PopoverStack::changed);
}

PopoverPanel& PopoverStack::ensurePanel(int level) {
    while (int(m_panels.size()) <= level)
        addPanel(panel(0).shape());
    return panel(level);
}

void PopoverStack::setItems(const QList<MenuItem>& items) {
    if (!isShown())
        return;
    const bool isNewQuery = takesNewQuery(items);
    list(0).expectFrame();
    panel(0).setItems(items);
    placeRoot();
    if (isNewQuery)
        showFirstFound();
    else
        refreshSubmenus();
    emit changed();
}

bool PopoverStack::awaitsAnswer() const {
    const SearchField* field = isShown() ? m_panels.front()->searchField() : nullptr;
    return field && field->text() != m_answeredQuery;
}

bool PopoverStack::takesNewQuery(const QList<MenuItem>& items) {
    const SearchField* field = panel(0).searchField();
    const QString answered = field ? field->text() : QString();
    const QString query = queryOf(items);
    const bool isAnother = answered != m_answeredQuery || query != m_itemsQuery;
    m_answeredQuery = answered;
    m_itemsQuery = query;
    return isAnother && field;
}

/// Return then takes what is found first, and nothing when nothing is found.
void PopoverStack::showFirstFound() {
    closeSubmenus(0);
    const PopoverRows& rows = list(0).rows();
    const int first = rows.first();
    const bool hasResults = first != PopoverRows::none && rows.item(first).tag == pasteItemTag;
    const bool isSearching = !m_itemsQuery.trimmed().isEmpty();
    if (isSearching)
        list(0).highlight(hasResults ? first : PopoverRows::none, Reveal::yes);
    else
        list(0).highlight(rows.firstPaste(), Reveal::yes);
    list(0).scrollToTop();
}

/// A submenu stays open as long as its item is there. A lazy one is asked for again, and shows
/// what it has until then.
void PopoverStack::refreshSubmenus() {
    for (int level = 0; level + 1 < m_depth; ++level) {
        const int row = list(level).openRow();
        const MenuItem item = row == PopoverRows::none ? MenuItem() : list(level).rows().item(row);
        if (!item.hasSubmenu())
            return closeSubmenus(level);
        if (item.submenu.isEmpty()) {
            emit submenuOpening(item.identifier);
        } else {
            panel(level + 1).setItems(item.submenu);
            placeSubmenu(level + 1);
        }
    }
}

void PopoverStack::fillSubmenu(const QString& identifier, const QList<MenuItem>& items) {
    for (int level = 0; level < m_depth; ++level) {
        list(level).fillSubmenu(identifier, items);
        const int row = list(level).openRow();
        const bool isOpen = level + 1 < m_depth && row != PopoverRows::none &&
                            list(level).rows().item(row).identifier == identifier;
        if (!isOpen)
            continue;
        panel(level + 1).setItems(items.isEmpty() ? placeholder() : items);
        placeSubmenu(level + 1);
        if (m_level == level + 1 && activeList().highlighted() == PopoverRows::none)
            activeList().highlight(activeList().rows().first(), Reveal::yes);
    }
    if (isShown())
        emit changed();
}

void PopoverStack::warmUp(const QList<MenuItem>& items) {
    useShape(isComposited() ? PanelFrame::Shape::blended : PanelFrame::Shape::square);
    for (int level : {0, 1}) {
        PopoverPanel& warmed = ensurePanel(level);
        warmed.setItems(items);
        warmed.resize(warmed.wantedSize());
        warmed.winId();
        prepareTextCursor(warmed.windowHandle());
        warmed.grab();
    }
    release();
}

/// Told once for each opening, when everything is hidden and the grabs are given back.
void PopoverStack::hide() {
    const int depth = std::exchange(m_depth, 0);
    if (depth == 0)
        return;
    m_level = 0;
    for (int level = depth - 1; level >= 0; --level)
        panel(level).hide();
    emit hidden();
}

void PopoverStack::release() {
    for (const auto& kept : m_panels) {
        kept->setItems({});
        if (kept != m_panels.front())
            kept->setName({});
    }
}

void PopoverStack::repaint() {
    for (int level = 0; level < m_depth; ++level)
        list(level).update();
}

bool PopoverStack::isSelectable(const Spot& spot) {
    return spot.level >= 0 && spot.level < m_depth &&
           list(spot.level).rows().isSelectable(spot.row);
}

PopoverStack::Spot PopoverStack::spotAt(const QPoint& global) {
    for (int level = m_depth - 1; level >= 0; --level)
        if (panel(level).place().contains(global))
            return {level, list(level).rowAt(list(level).mapFromGlobal(global))};
    return {};
}

void PopoverStack::highlight(const Spot& spot, Reveal reveal) {
    setLevel(spot.level);
    list(spot.level).highlight(spot.row, reveal);
}

void PopoverStack::setLevel(int level) {
    m_level = std::clamp(level, 0, std::max(0, m_depth - 1));
    for (int other = 0; other < m_depth; ++other)
        list(other).setActive(other == m_level);
}

void PopoverStack::activate(const Spot& spot, By by) {
    if (!isSelectable(spot))
        return;
    const MenuItem item = list(spot.level).rows().item(spot.row);
    if (!item.hasSubmenu())
        emit chosen(item);
    else if (spot.level + 1 < m_depth && list(spot.level).openRow() == spot.row)
        enter(spot.level + 1);
    else
        openSubmenu(spot, by);
}

void PopoverStack::openSubmenu(const Spot& spot, By by) {
    closeSubmenus(spot.level);
    if (!isSelectable(spot) || !list(spot.level).rows().item(spot.row).hasSubmenu())
        return;
    list(spot.level).setOpenRow(spot.row);
    const MenuItem item = list(spot.level).rows().item(spot.row);
    if (item.isLazy())
        emit submenuOpening(item.identifier); // May fill it, or change everything.
    if (m_depth != spot.level + 1 || list(spot.level).openRow() == PopoverRows::none)
        return;
    showSubmenu(spot.level + 1);
    if (by == By::keyboard)
        enter(spot.level + 1);
}

void PopoverStack::showSubmenu(int level) {
    PopoverList& parent = list(level - 1);
    const MenuItem item = parent.rows().item(parent.openRow());
    const QList<MenuItem>& items = item.submenu;
    PopoverPanel& shown = ensurePanel(level);
    shown.setName(item.title);
    shown.setItems(items.isEmpty() ? placeholder() : items);
    shown.list().highlight(PopoverRows::none, Reveal::no);
    shown.list().setOpenRow(PopoverRows::none);
    shown.list().scrollToTop();
    m_depth = level + 1;
    setLevel(m_level);
    placeSubmenu(level);
    shown.show();
    shown.raise();
    emit changed();
}

void PopoverStack::enter(int level) {
    setLevel(level);
    if (activeList().highlighted() == PopoverRows::none)
        activeList().highlight(activeList().rows().first(), Reveal::yes);
    emit changed();
}

void PopoverStack::closeSubmenus(int level) {
    if (level < 0 || level >= m_depth)
        return;
    list(level).setOpenRow(PopoverRows::none);
    if (level + 1 >= m_depth)
        return;
    for (int closing = std::exchange(m_depth, level + 1) - 1; closing > level; --closing) {
        panel(closing).hide();
        panel(closing).setItems({});
    }
    setLevel(m_level);
    emit changed();
}

/// While something is searched for, the panel does not shrink with every letter.
void PopoverStack::placeRoot() {
    PopoverPanel& root = panel(0);
    QSize size = root.wantedSize();
    if (root.searchField() && !root.searchField()->text().isEmpty())
        size = size.expandedTo(root.place().size());
    const QRect place = m_anchor.resized(root.place(), size, m_screen.limits());
    if (place != root.place())
        root.setPlace(place);
}

/// An open submenu keeps its side; a new one takes the side of the one before.
void PopoverStack::placeSubmenu(int level) {
    PopoverPanel& placed = panel(level);
    const QSize size = placed.wantedSize();
    if (placed.isVisible()) {
        QRect place(placed.place().topLeft(), size);
        if (m_sides[std::size_t(level)] == PanelSide::left)
            place.moveRight(placed.place().right());
        return placed.setPlace(movedInto(m_screen.limits(), place));
    }
    const PopoverList& parent = list(level - 1);
    const QRect row = parent.placeOf(parent.openRow());
    const bool isMirrored = QGuiApplication::isRightToLeft();
    const PanelSide first = isMirrored ? PanelSide::left : PanelSide::right;
    const PanelSide wanted = level > 1 ? m_sides[std::size_t(level) - 1] : first;
    const SubmenuPlace found =
        placedBeside(panel(level - 1).place(), row.translated(parent.mapToGlobal(QPoint())), size,
                     wanted, m_screen.limits());
    m_sides[std::size_t(level)] = found.side;
    placed.setPlace(found.place);
}

bool PopoverStack::dismissHint(const Spot& spot, QPoint global) {
    if (spot.level < 0 || spot.row == PopoverRows::none)
        return false;
    const MenuItem item = list(spot.level).rows().item(spot.row);
    const QRect row = list(spot.level).placeOf(spot.row);
    const int x = list(spot.level).mapFromGlobal(global).x();
    const int fromEnd = QGuiApplication::isRightToLeft() ? x - row.left() : row.right() - x;
    if (item.kind != MenuItemKind::hint || item.action == MenuAction::none ||
        fromEnd > PopoverMetrics::hintMark)
        return false;
    emit hintDismissed(item);
    return true;
}

} // namespace quorvel
