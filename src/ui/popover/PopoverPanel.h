#pragma once

#include "ui/SearchField.h"
#include "ui/popover/PanelFrame.h"
#include "ui/popover/PopoverList.h"

namespace quorvel {

/// One window of the popover: a list and, in the first window, the search field above it. Never
/// takes the input focus from another program.
class PopoverPanel final : public QWidget {
    Q_OBJECT

public:
    /// `root` is null for the first panel, which is the popup.
    PopoverPanel(const PopoverContext& context, PanelFrame::Shape shape, PopoverPanel* root);

    /// The items of a menu; a search field among them is shown above the others.
    void setItems(const QList<MenuItem>& items);

    /// What assistive programs call it.
    void setName(const QString& name);

    PopoverList& list() { return *m_list; }
    const PopoverList& list() const { return *m_list; }
    PanelFrame::Shape shape() const { return m_frame.shape(); }

    /// Null when there is none among the items.
    SearchField* searchField() const { return m_hasSearch ? m_field : nullptr; }

    /// What the panel would be at best, without its shadow.
    QSize wantedSize();

    /// Where the panel is on the screen, without its shadow.
    QRect place() const { return geometry().marginsRemoved(m_frame.margins()); }
    void setPlace(const QRect& place) { setGeometry(place.marginsAdded(m_frame.margins())); }

signals:
    void keyPressed(QKeyEvent& press);
    void keyReleased(const QKeyEvent& release);

    /// Mouse, wheel and touch. The first panel gets all of them, wherever they are.
    void pointed(QEvent& event);
    void searchChanged(const QString& text);
    void hidden();

protected:
    bool event(QEvent* event) override;
    bool focusNextPrevChild(bool /*next*/) override { return false; }
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void addSearchField();
    void showSearch(const QList<MenuItem>& items);
    void dressSearchField();
    void layOut();
    int head() const;
    int submenuWidth();
    QRect panelRect() const { return rect().marginsRemoved(m_frame.margins()); }
    QRect fieldRect() const;

    const PopoverContext& m_context;
    PanelFrame m_frame;
    PopoverList* m_list;
    SearchField* m_field = nullptr;
    QAction* m_magnifier = nullptr;
    QAction* m_clear = nullptr;
    int m_widest = 0;
    bool m_hasSearch = false;
    bool m_isDressing = false;
};

} // namespace quorvel
