#include "ui/popover/PopoverAccessible.h"

#include "ui/popover/PopoverList.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QHash>
#include <QPointer>

namespace quorvel {

namespace {

/// One row of a list, by its number; whatever stands there at the time.
class AccessibleRow final : public QAccessibleInterface {
public:
    AccessibleRow(PopoverList& list, int row)
        : m_list(&list)
        , m_row(row) {}

    bool isValid() const override { return m_list && m_row < m_list->rows().count(); }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return m_list->window()->windowHandle(); }
    QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(m_list);
    }
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }

    QString text(QAccessible::Text kind) const override {
        if (!isValid())
            return {};
        if (kind == QAccessible::Name)
            return item().title;
        return kind == QAccessible::Description ? item().detail : QString();
    }
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}

    QRect rect() const override {
        if (!isValid())
            return {};
        return m_list->placeOf(m_row).translated(m_list->mapToGlobal(QPoint()));
    }

    QAccessible::Role role() const override {
        if (!isValid())
            return QAccessible::NoRole;
        switch (item().kind) {
        case MenuItemKind::separator:
            return QAccessible::Separator;
        case MenuItemKind::header:
        case MenuItemKind::hint:
        case MenuItemKind::textBox:
            return QAccessible::StaticText;
        default:
            return QAccessible::MenuItem;
        }
    }

    QAccessible::State state() const override {
        QAccessible::State state;
        if (!isValid()) {
            state.invalid = true;
            return state;
        }
        state.disabled = !item().enabled;
        state.focusable = state.selectable = m_list->rows().isSelectable(m_row);
        state.focused = state.selected = m_list->highlighted() == m_row;
        state.hasPopup = item().hasSubmenu();
        state.expandable = item().hasSubmenu();
        state.expanded = m_list->openRow() == m_row;
        state.offscreen = !m_list->rect().intersects(m_list->placeOf(m_row));
        return state;
    }

private:
    const MenuItem& item() const { return m_list->rows().item(m_row); }

    QPointer<PopoverList> m_list;
    int m_row;
};

class AccessibleList final : public QAccessibleWidget {
public:
    explicit AccessibleList(PopoverList& list)
        : QAccessibleWidget(&list, QAccessible::PopupMenu) {}
    AccessibleList(const AccessibleList&) = delete;
    AccessibleList& operator=(const AccessibleList&) = delete;
    ~AccessibleList() override {
        for (const QAccessible::Id id : std::as_const(m_rows))
            QAccessible::deleteAccessibleInterface(id);
    }

    int childCount() const override { return list().rows().count(); }

    QAccessibleInterface* child(int row) const override {
        if (row < 0 || row >= childCount())
            return nullptr;
        const auto known = m_rows.constFind(row);
        if (known != m_rows.constEnd())
            return QAccessible::accessibleInterface(*known);
        auto* made = new AccessibleRow(list(), row);
        m_rows.insert(row, QAccessible::registerAccessibleInterface(made));
        return made;
    }

    int indexOfChild(const QAccessibleInterface* child) const override {
        for (auto row = m_rows.constBegin(); row != m_rows.constEnd(); ++row)
            if (QAccessible::accessibleInterface(*row) == child)
                return row.key();
        return -1;
    }

    QAccessibleInterface* childAt(int x, int y) const override {
        return child(list().rowAt(list().mapFromGlobal(QPoint(x, y))));
    }

    QAccessibleInterface* focusChild() const override { return child(list().highlighted()); }

private:
    PopoverList& list() const { return *static_cast<PopoverList*>(widget()); }

    mutable QHash<int, QAccessible::Id> m_rows; ///< Those that were asked for.
};

QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object) {
    auto* list = qobject_cast<PopoverList*>(object);
    return list ? new AccessibleList(*list) : nullptr;
}

} // namespace

void makeListsAccessible() {
    static const bool isDone = [] {
        QAccessible::installFactory(makeInterface);
        return true;
    }();
    Q_UNUSED(isDone);
}

void announceHighlight(PopoverList& list) {
    if (!QAccessible::isActive() || list.highlighted() == PopoverRows::none)
        return;
    QAccessibleEvent focus(&list, QAccessible::Focus);
    focus.setChild(list.highlighted());
    QAccessible::updateAccessibility(&focus);
}

void announceRows(PopoverList& list) {
    if (!QAccessible::isActive() || !list.isVisible())
        return;
    QAccessibleEvent reordered(&list, QAccessible::ObjectReorder);
    QAccessible::updateAccessibility(&reordered);
}

} // namespace quorvel
