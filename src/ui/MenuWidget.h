#pragma once

#include "menu/MenuItem.h"
#include "ui/PopupScreen.h"

#include <QHash>
#include <QMenu>

#include <functional>
#include <optional>
#include <vector>

class QHelpEvent;
class QKeyEvent;

namespace quorvel {

class Pasteboard;
class SearchRow;

/// What all menus of one tree share.
struct MenuContext {
    Pasteboard& pasteboard;
    std::function<QIcon(const MenuItem&)> icon;
    std::function<QString(const KeyEquivalent&)> keyText;
    std::function<bool(const QKeyEvent&)> takesKey; ///< Whether the press was dealt with.
    std::function<bool(QKeyEvent&)> typed;          ///< Whether the press was typing.
    std::function<void(const QKeyEvent&)> keyReleased;
    std::function<void(const MenuItem&)> chosen;
    std::function<void(const QString&)> submenuOpening;
};

/// One menu window that shows menu items. Its rows are kept and filled anew, so that opening costs
/// little and nothing grows; submenus and tool tips are only made when they are looked at.
class MenuWidget final : public QMenu {
    Q_OBJECT

public:
    MenuWidget(const MenuContext& context, QStyle* style, QWidget* parent = nullptr);

    /// Shows these items. An open menu stays open, on the screen, with the same item highlighted;
    /// an open submenu stays open when its item keeps its place.
    void setItems(const QList<MenuItem>& items);

    /// Gives the lazy submenus of this identifier their items; nothing when there is none.
    void fillSubmenu(const QString& identifier, const QList<MenuItem>& items);

    /// Forgets all items and submenus. Only while closed.
    void release();

    /// Below or above the pointer, within the screen.
    void popUpAt(QPoint pointer, const PopupScreen& screen);

    /// To be called, while closed, when any screen was unplugged.
    void forgetScreen();

    /// Takes the size that its rows need, within its screen.
    void layOutAgain();

    /// Whether the items are no answer yet to what is in the search field.
    bool awaitsAnswer() const;

    /// Hands a press to the search field, wherever the highlight is; false when there is none or
    /// the press drives the menu.
    bool type(QKeyEvent& press);

    /// Asks again for the icons of the rows that show pictures.
    void refreshPictures();

    /// The enabled item, here or in a submenu, for which `matches` holds.
    std::optional<MenuItem> find(const std::function<bool(const MenuItem&)>& matches) const;

signals:
    /// The first frame since `popUpAt` is on the screen.
    void painted();

    void searchChanged(const QString& query);

protected:
    void initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const override;
    void actionEvent(QActionEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

private:
    struct Row {
        QAction* action = nullptr;
        MenuWidget* submenu = nullptr;
        MenuItem item;
        QString wrapped; ///< The lines of a text.
    };

    void addRow();
    void fill(size_t index, const MenuItem& item);
    void draw(Row& row);
    void empty(Row& row);
    void addSearchRow();
    void placeSearchRow(size_t index);
    void settleSearchRow();
    void focusSearchField();
    bool takesNewQuery(const QList<MenuItem>& items);
    void measure(const QList<MenuItem>& items);
    QString shownTitle(const QString& title);
    void attachSubmenu(size_t index);
    void prepareSubmenu(size_t index);
    void makeSubmenu(size_t index);
    void showSubmenuItems(size_t index);
    void refreshOpenSubmenu(size_t index, bool isSameItem);
    QRect placeOfNewSize() const;
    MenuWidget& shownMenu();
    void highlight(const Row& row);
    void highlightAgain(const MenuItem& item, const QAction* previous);
    void highlightFirstFound();
    void showToolTip(const QHelpEvent& help);
    const Row& rowOf(const QAction& action) const;

    const MenuContext& m_context;
    std::vector<Row> m_rows;
    bool m_hasIcons = false;
    bool m_isFilling = false;
    std::optional<int> m_upperEdge; ///< Where one edge stays when the height changes.
    std::optional<int> m_lowerEdge;
    std::optional<int> m_rightEdge; ///< Where it stays when the width changes.
    QMenu* m_unopenedSubmenu = nullptr;
    QHash<QString, QString> m_titles; ///< As they are shown.
    SearchRow* m_search = nullptr;
    std::optional<size_t> m_searchIndex;
    QString m_answeredQuery; ///< What was in the field when the items were last replaced.
    QString m_itemsQuery;    ///< What the items are the answer to.
    int m_wideRow = 0;
    int m_keyColumn = 0;
    bool m_awaitsFrame = false;
};

} // namespace quorvel
