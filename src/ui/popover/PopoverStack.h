#pragma once

#include "ui/popover/PopoverPanel.h"

#include <QTimer>

#include <functional>
#include <memory>
#include <optional>

class QMouseEvent;
class QWheelEvent;

namespace quorvel {

/// The panels of the open popover, the root and one for each open submenu, and the highlight that
/// keys and pointer move through them. The root gets every event; the others only show.
class PopoverStack final : public QObject {
    Q_OBJECT

public:
    explicit PopoverStack(const PopoverContext& context);

    PopoverPanel& root() { return *m_levels.front()->panel; }

    /// Shows the root panel beside the pointer, wholly on one screen.
    void open(const QList<MenuItem>& tree, QPoint pointer);
    void update(const QList<MenuItem>& tree);
    void fillSubmenu(const QString& identifier, const QList<MenuItem>& items);
    void close();

    /// Lays everything out and paints it once, unseen.
    void warmUp(const QList<MenuItem>& tree);

    /// Whether the key drove the popover. Typing is left to the search field.
    bool driveBy(const QKeyEvent& press);

    /// Closes the topmost submenu; false when there is none.
    bool leaveSubmenu();

    bool isSubmenuOpen() const { return m_levels.size() > 1; }

    /// The enabled item at any level for which `matches` holds.
    std::optional<MenuItem> find(const std::function<bool(const MenuItem&)>& matches) const;

    void refreshPictures();

    /// The next `update` brings other results: the highlight goes to the first of them.
    void expectResults() { m_expectsResults = true; }

signals:
    void chosen(const quorvel::MenuItem& item);
    void submenuOpening(const QString& identifier);

    /// The pointer was pressed beside all panels.
    void pressedOutside();
    void painted();

private:
    struct Level {
        std::unique_ptr<PopoverPanel> panel;
        QList<MenuItem> items;
        MenuItem opener; ///< The row of the level below that it belongs to.
    };

    PopoverPanel& panel(std::size_t level) { return *m_levels[level]->panel; }
    PopoverList& list(std::size_t level) { return panel(level).list(); }
    std::size_t top() const { return m_levels.size() - 1; }
    void addLevel(PopoverPanel::Level kind);

    void openSubmenu(std::size_t level, int row);
    void closeSubmenusAbove(std::size_t level);
    void showSubmenu(std::size_t level, int row);
    QList<MenuItem> submenuOf(const MenuItem& item) const;
    void placeSubmenu(std::size_t level, int row);
    void placeRoot(QPoint pointer);
    void growRoot();
    void reopenSubmenus();

    void step(int by);
    void stepSection(int by);
    void moveTo(int row);
    bool enterSubmenu();
    void activate(std::size_t level, int row);

    void pointerEvent(QEvent* event);
    void pointerMoved(const QMouseEvent& event);
    void pointerPressed(const QMouseEvent& event);
    void pointerReleased(const QMouseEvent& event);
    void wheelTurned(const QWheelEvent& event);
    void hover(std::size_t level, int row);
    void followHover();
    std::optional<std::size_t> levelAt(QPoint global) const;

    const PopoverContext& m_context;
    std::vector<std::unique_ptr<Level>> m_levels;
    QTimer m_hoverTimer;
    QPoint m_lastPointer;
    std::optional<std::pair<std::size_t, int>> m_pressed;
    bool m_isDraggingBar = false;
    std::optional<QPoint> m_touch;
    bool m_opensUpwards = false;
    bool m_expectsResults = false;
};

} // namespace quorvel
