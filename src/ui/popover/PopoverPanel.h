#pragma once

#include "ui/SearchField.h"
#include "ui/popover/PopoverList.h"

namespace quorvel {

/// One window of the popover: a list, at the root with the search field above it.
class PopoverPanel final : public QWidget {
    Q_OBJECT

public:
    enum class Level { root, submenu };

    PopoverPanel(const PopoverContext& context, Level level);

    void setItems(const QList<MenuItem>& items);

    PopoverList& list() { return *m_list; }
    const PopoverList& list() const { return *m_list; }

    /// Null when the tree has no search field.
    SearchField* searchField() const;

    /// What all rows would take, no wider or taller than the popover may be.
    QSize wantedSize() const;

    /// Where the list is reached in coordinates of the screen.
    QPoint listPlace(const QPoint& global) const { return m_list->mapFromGlobal(global); }

signals:
    void keyPressed(QKeyEvent* press);
    void keyReleased(const QKeyEvent* release);

    /// At the root the toolkit sends every event of the pointer here, also those beside the window.
    void pointerEvent(QEvent* event);
    void wentAway();
    void searchChanged(const QString& query);

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    int wantedWidth() const;
    int headHeight() const;
    void layOut();
    void styleField();

    const Level m_level;
    PopoverList* m_list;
    SearchField* m_field = nullptr;
    bool m_hasSearch = false;
};

} // namespace quorvel
