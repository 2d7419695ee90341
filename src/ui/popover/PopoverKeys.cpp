#include "ui/popover/PopoverKeys.h"

#include <QGuiApplication>
#include <QKeyEvent>

namespace quorvel {

bool PopoverKeys::press(QKeyEvent& press) {
    if (press.key() == Qt::Key_Escape && leaveSubmenu())
        return true;
    if (type(press))
        return true;
    const PopoverList& list = m_stack.activeList();
    const PopoverRows& rows = list.rows();
    const bool isMirrored = QGuiApplication::isRightToLeft();
    switch (press.key()) {
    case Qt::Key_Down:
        moveTo(list.highlighted() == PopoverRows::none ? rows.first()
                                                       : rows.next(list.highlighted(), 1));
        break;
    case Qt::Key_Up:
        moveTo(list.highlighted() == PopoverRows::none ? rows.last()
                                                       : rows.next(list.highlighted(), -1));
        break;
    case Qt::Key_PageDown:
        moveTo(list.rowOfNextPage(1));
        break;
    case Qt::Key_PageUp:
        moveTo(list.rowOfNextPage(-1));
        break;
    case Qt::Key_Home:
        moveTo(rows.first());
        break;
    case Qt::Key_End:
        moveTo(rows.last());
        break;
    case Qt::Key_Tab:
        moveTo(rows.nextSection(list.highlighted(), 1));
        break;
    case Qt::Key_Backtab:
        moveTo(rows.nextSection(list.highlighted(), -1));
        break;
    case Qt::Key_Right:
        isMirrored ? void(leaveSubmenu()) : enterSubmenu();
        break;
    case Qt::Key_Left:
        isMirrored ? enterSubmenu() : void(leaveSubmenu());
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        m_stack.activate(m_stack.highlighted(), PopoverStack::By::keyboard);
        break;
    case Qt::Key_Escape:
        return false;
    default:
        break;
    }
    return true;
}

/// The field has every key that edits its text, wherever the highlight is.
bool PopoverKeys::type(QKeyEvent& press) {
    using Submenu = SearchField::Submenu;
    SearchField* field = m_stack.panel(0).searchField();
    return field && field->take(press, m_stack.depth() > 1 ? Submenu::open : Submenu::closed);
}

bool PopoverKeys::leaveSubmenu() {
    if (m_stack.depth() <= 1)
        return false;
    m_stack.closeSubmenus(m_stack.level() > 0 ? m_stack.level() - 1 : 0);
    return true;
}

void PopoverKeys::enterSubmenu() {
    const PopoverStack::Spot spot = m_stack.highlighted();
    if (m_stack.isSelectable(spot) && m_stack.list(spot.level).rows().item(spot.row).hasSubmenu())
        m_stack.activate(spot, PopoverStack::By::keyboard);
}

void PopoverKeys::moveTo(int row) {
    if (row == PopoverRows::none)
        return;
    const int level = m_stack.level();
    if (m_stack.activeList().highlighted() != row)
        m_stack.closeSubmenus(level);
    m_stack.highlight({level, row}, PopoverList::Reveal::yes);
}

} // namespace quorvel
