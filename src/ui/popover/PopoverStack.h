#pragma once

#include "ui/PopupScreen.h"
#include "ui/popover/PanelPlacement.h"
#include "ui/popover/PopoverPanel.h"

#include <memory>
#include <vector>

namespace quorvel {

/// The panels of the popover: the first one and the open submenus, each beside the one before.
/// Knows which of them the keyboard is at. Whatever it emits may change or close it.
class PopoverStack final : public QObject {
    Q_OBJECT

public:
    using Reveal = PopoverList::Reveal;

    /// A row of one of the panels.
    struct Spot {
        int level = -1; ///< -1 outside of all panels.
        int row = PopoverRows::none;

        bool operator==(const Spot&) const = default;
    };

    enum class By { keyboard, pointer };

    PopoverStack(const PopoverContext& context, const PopupScreen& screen);
    ~PopoverStack() override;

    void open(const QList<MenuItem>& items, QPoint pointer);
    void setItems(const QList<MenuItem>& items);
    void fillSubmenu(const QString& identifier, const QList<MenuItem>& items);
    void warmUp(const QList<MenuItem>& items);
    void hide();

    /// Forgets all items. Only while hidden.
    void release();
    void repaint();

    /// The screen has become larger or smaller. Only while shown.
    void fitToScreen() { placeRoot(); }

    /// Whether the items are no answer yet to what is in the search field.
    bool awaitsAnswer() const;

    bool isShown() const { return m_depth > 0; }
    int depth() const { return m_depth; }
    int level() const { return m_level; }
    PopoverPanel& panel(int level) { return *m_panels[std::size_t(level)]; }
    PopoverList& list(int level) { return panel(level).list(); }
    PopoverList& activeList() { return list(m_level); }
    bool isSelectable(const Spot& spot);

    /// What is at this place of the screen.
    Spot spotAt(const QPoint& global);
    Spot highlighted() { return {m_level, activeList().highlighted()}; }

    /// Moves the highlight, and the keyboard with it.
    void highlight(const Spot& spot, Reveal reveal);
    void setLevel(int level);

    /// Chooses an item, or enters its submenu.
    void activate(const Spot& spot, By by);

    /// Dismisses a hint by the mark at the end of its row; false when there is none at this place.
    bool dismissHint(const Spot& spot, QPoint global);
    void openSubmenu(const Spot& spot, By by);

    /// Closes the submenus of this level.
    void closeSubmenus(int level);

signals:
    void chosen(const quorvel::MenuItem& item);

    /// What a hint offers in passing is wanted; the popover stays.
    void hintDismissed(const quorvel::MenuItem& hint);
    void submenuOpening(const QString& identifier);
    void searchChanged(const QString& query);
    void painted();
    void hidden();
    void keyPressed(QKeyEvent& press);
    void keyReleased(const QKeyEvent& release);
    void pointed(QEvent& event);

    /// What is highlighted, shown, or under the pointer is another.
    void changed();

private:
    void useShape(PanelFrame::Shape shape);
    void addPanel(PanelFrame::Shape shape);
    PopoverPanel& ensurePanel(int level);
    bool takesNewQuery(const QList<MenuItem>& items);
    void showFirstFound();
    void refreshSubmenus();
    void showSubmenu(int level);
    void placeRoot();
    void placeSubmenu(int level);
    void enter(int level);

    const PopoverContext& m_context;
    const PopupScreen& m_screen;
    std::vector<std::unique_ptr<PopoverPanel>> m_panels; ///< Kept; the first `m_depth` are shown.
    std::vector<PanelSide> m_sides;
    PanelAnchor m_anchor;
    QString m_itemsQuery;    ///< What the items are the answer to.
    QString m_answeredQuery; ///< What was in the field when the items were last replaced.
    int m_depth = 0;
    int m_level = 0;
};

} // namespace quorvel
