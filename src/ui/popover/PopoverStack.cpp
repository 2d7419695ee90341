#include "ui/popover/PopoverStack.h"

#include "ui/MenuPlacement.h"
#include "ui/MenuTree.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QScreen>

namespace quorvel {

namespace {

constexpr int hoverMilliseconds = 140;
constexpr int submenuOverlap = 4;

const QList<MenuItem>& placeholder() {
    static const QList<MenuItem> items{MenuItem::disabled(QStringLiteral("\u2026"))};
    return items;
}

QRect limitsAt(QPoint place) {
    const QScreen* screen = QGuiApplication::screenAt(place);
    return (screen ? screen : QGuiApplication::primaryScreen())->availableGeometry();
}

} // namespace

PopoverStack::PopoverStack(const PopoverContext& context)
    : m_context(context) {
    addLevel(PopoverPanel::Level::root);
    connect(&root(), &PopoverPanel::pointerEvent, this, &PopoverStack::pointerEvent);
    connect(&root().list(), &PopoverList::painted, this, &PopoverStack::painted);
    m_hoverTimer.setSingleShot(true);
    m_hoverTimer.setInterval(hoverMilliseconds);
    connect(&m_hoverTimer, &QTimer::timeout, this, &PopoverStack::followHover);
}

void PopoverStack::addLevel(PopoverPanel::Level kind) {
    auto level = std::make_unique<Level>();
    level->panel = std::make_unique<PopoverPanel>(m_context, kind);
    m_levels.push_back(std::move(level));
}

void PopoverStack::open(const QList<MenuItem>& tree, QPoint pointer) {
    closeSubmenusAbove(0);
    m_expectsResults = false;
    m_lastPointer = pointer;
    m_pressed.reset();
    m_levels.front()->items = tree;
    list(0).highlight(PopoverRows::none);
    root().setItems(tree);
    list(0).scrollToStart();
    placeRoot(pointer);
    list(0).expectPaint();
    root().show();
    if (SearchField* field = root().searchField()) {
        field->showText({});
        field->setFocus(Qt::PopupFocusReason);
    }
    list(0).highlight(list(0).rows().start());
}

void PopoverStack::warmUp(const QList<MenuItem>& tree) {
    root().setItems(tree);
    root().resize(root().wantedSize());
    root().winId();
    root().grab();
}

void PopoverStack::close() {
    closeSubmenusAbove(0);
    m_hoverTimer.stop();
    root().hide();
    list(0).highlight(PopoverRows::none);
}

void PopoverStack::placeRoot(QPoint pointer) {
    const QRect limits = limitsAt(pointer);
    const QSize size = root().wantedSize().boundedTo(limits.size());
    const MenuPlace place =
        placedAtPointer(size, pointer, limits, QGuiApplication::layoutDirection());
    m_opensUpwards = place.isAbovePointer;
    root().setGeometry(QRect(place.topLeft, size));
}

void PopoverStack::update(const QList<MenuItem>& tree) {
    m_levels.front()->items = tree;
    root().setItems(tree);
    growRoot();
    const bool hasResults = std::exchange(m_expectsResults, false);
    if (hasResults)
        list(0).scrollToStart();
    if (hasResults || list(0).highlighted() == PopoverRows::none)
        list(0).highlight(list(0).rows().start());
    reopenSubmenus();
}

/// An open popover may grow, away from the pointer, but never shrinks under the user's eyes.
void PopoverStack::growRoot() {
    QRect place = root().geometry();
    const QRect limits = limitsAt(place.center());
    const int wanted = std::min(root().wantedSize().height(), limits.height());
    if (wanted <= place.height() && limits.contains(place))
        return;
    const int bottom = place.bottom();
    place.setHeight(std::max(wanted, place.height()));
    if (m_opensUpwards)
        place.moveBottom(bottom);
    root().setGeometry(movedInto(limits, place));
}

/// A submenu stays open when its row is still there.
void PopoverStack::reopenSubmenus() {
    for (std::size_t level = 1; level < m_levels.size(); ++level) {
        const int row = list(level - 1).rows().find(m_levels[level]->opener);
        if (row == PopoverRows::none || !list(level - 1).rows().at(row).item.hasSubmenu())
            return closeSubmenusAbove(level - 1);
        list(level - 1).setOpenSubmenu(row);
        showSubmenu(level - 1, row);
    }
}

void PopoverStack::fillSubmenu(const QString& identifier, const QList<MenuItem>& items) {
    for (std::size_t level = 0; level < m_levels.size(); ++level) {
        if (!fillSubmenuItem(m_levels[level]->items, identifier, items))
            continue;
        list(level).fillSubmenu(identifier, items);
        if (level + 1 < m_levels.size() && m_levels[level + 1]->opener.identifier == identifier) {
            m_levels[level + 1]->items = items;
            panel(level + 1).setItems(items);
            placeSubmenu(level, list(level).rows().findSubmenu(identifier));
        }
        return;
    }
}

void PopoverStack::openSubmenu(std::size_t level, int row) {
    const MenuItem item = list(level).rows().at(row).item;
    if (level < top() && isSameItem(m_levels[level + 1]->opener, item))
        return;
    closeSubmenusAbove(level);
    addLevel(PopoverPanel::Level::submenu);
    m_levels.back()->opener = item;
    list(level).setOpenSubmenu(row);
    showSubmenu(level, row);
    panel(level + 1).show();
}

/// Whoever fills a lazy submenu may do so at once or later.
void PopoverStack::showSubmenu(std::size_t level, int row) {
    const MenuItem item = list(level).rows().at(row).item;
    m_levels[level + 1]->opener = item;
    const QList<MenuItem> known = item.submenu.isEmpty() ? placeholder() : item.submenu;
    const bool isShown = panel(level + 1).isVisible() && item.submenu.isEmpty();
    if (!isShown) { // Otherwise what it shows stays until it is filled anew.
        m_levels[level + 1]->items = known;
        panel(level + 1).setItems(known);
        placeSubmenu(level, row);
    }
    if (item.isLazy() && item.submenu.isEmpty())
        emit submenuOpening(item.identifier);
}

void PopoverStack::placeSubmenu(std::size_t level, int row) {
    if (row == PopoverRows::none)
        return;
    PopoverPanel& submenu = panel(level + 1);
    const QRect below = panel(level).frameGeometry();
    const QRect limits = limitsAt(below.center());
    const QSize size = submenu.wantedSize().boundedTo(limits.size());
    const int rowTop = list(level).mapToGlobal(list(level).placeOf(row).topLeft()).y();
    const int after = below.right() + 1 - submenuOverlap;
    const int before = below.left() - size.width() + submenuOverlap;
    const bool fitsAfter = after + size.width() - 1 <= limits.right();
    const bool fitsBefore = before >= limits.left();
    const bool prefersBefore = QGuiApplication::layoutDirection() == Qt::RightToLeft;
    const bool isBefore = prefersBefore ? fitsBefore || !fitsAfter : fitsBefore && !fitsAfter;
    const QPoint corner(isBefore ? before : after, rowTop - PopoverMetrics::edge);
    submenu.setGeometry(movedInto(limits, QRect(corner, size)));
}

void PopoverStack::closeSubmenusAbove(std::size_t level) {
    while (m_levels.size() > level + 1) {
        m_levels.back()->panel->hide();
        m_levels.back()->panel.release()->deleteLater(); // We may be inside one of its events.
        m_levels.pop_back();
    }
    list(level).setOpenSubmenu(PopoverRows::none);
}

std::optional<MenuItem>
PopoverStack::find(const std::function<bool(const MenuItem&)>& matches) const {
    for (const auto& level : m_levels)
        if (auto found = findItem(level->items, matches))
            return found;
    return std::nullopt;
}

void PopoverStack::refreshPictures() {
    for (const auto& level : m_levels)
        level->panel->list().refreshPictures();
}

void PopoverStack::moveTo(int row) {
    if (row == PopoverRows::none)
        return;
    m_hoverTimer.stop();
    list(top()).highlight(row);
}

void PopoverStack::step(int by) {
    moveTo(list(top()).rows().next(list(top()).highlighted(), by));
}

void PopoverStack::stepSection(int by) {
    moveTo(list(top()).rows().nextSection(list(top()).highlighted(), by));
}

bool PopoverStack::enterSubmenu() {
    const std::size_t level = top();
    const int row = list(level).highlighted();
    if (row == PopoverRows::none || !list(level).rows().at(row).item.hasSubmenu())
        return false;
    openSubmenu(level, row);
    list(level + 1).highlight(list(level + 1).rows().start());
    return true;
}

bool PopoverStack::leaveSubmenu() {
    if (!isSubmenuOpen())
        return false;
    closeSubmenusAbove(top() - 1);
    return true;
}

bool PopoverStack::driveBy(const QKeyEvent& press) {
    const bool isMirrored = QGuiApplication::layoutDirection() == Qt::RightToLeft;
    const int page = list(top()).rowsPerPage();
    switch (press.key()) {
    case Qt::Key_Down:
        return step(1), true;
    case Qt::Key_Up:
        return step(-1), true;
    case Qt::Key_PageDown: {
        const int row = list(top()).highlighted();
        const int next = list(top()).rows().next(row, page);
        return moveTo(next < row ? list(top()).rows().last() : next), true;
    }
    case Qt::Key_PageUp: {
        const int row = list(top()).highlighted();
        const int next = list(top()).rows().next(row, -page);
        return moveTo(next > row ? list(top()).rows().first() : next), true;
    }
    case Qt::Key_Home:
        return moveTo(list(top()).rows().first()), true;
    case Qt::Key_End:
        return moveTo(list(top()).rows().last()), true;
    case Qt::Key_Tab:
        return stepSection(1), true;
    case Qt::Key_Backtab:
        return stepSection(-1), true;
    case Qt::Key_Right:
        return isMirrored ? leaveSubmenu() : enterSubmenu();
    case Qt::Key_Left:
        return isMirrored ? enterSubmenu() : leaveSubmenu();
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return activate(top(), list(top()).highlighted()), true;
    default:
        return false;
    }
}

void PopoverStack::activate(std::size_t level, int row) {
    if (row == PopoverRows::none || !list(level).rows().at(row).isSelectable())
        return;
    const MenuItem item = list(level).rows().at(row).item;
    if (item.hasSubmenu())
        enterSubmenu();
    else
        emit chosen(item);
}

} // namespace quorvel
