#pragma once

#include "ui/popover/RowPainter.h"
#include "ui/popover/ScrollMotion.h"

#include <QWidget>

#include <optional>

namespace quorvel {

/// The rows of one panel: shows what fits, scrolls, and carries the highlight. Only what is visible
/// is painted. Takes no input; its panel hands on what is meant for it.
class PopoverList final : public QWidget {
    Q_OBJECT

public:
    enum class Reveal { no, yes };

    PopoverList(const PopoverContext& context, QWidget* parent);

    /// Shows these items. The highlight and the open row stay with their items, and what is seen
    /// stays in its place.
    void setItems(const QList<MenuItem>& items);
    bool fillSubmenu(const QString& identifier, const QList<MenuItem>& items);

    const PopoverRows& rows() const { return m_rows; }
    const PopoverMetrics& metrics() const { return m_metrics; }

    /// The width in which no row is cut, as far as it is worth to look.
    int wantedWidth() const;

    /// The height that shows every row without scrolling, in this width.
    int wantedHeight(int width);

    int highlighted() const { return m_highlighted; }
    void highlight(int row, Reveal reveal);

    /// The row whose submenu is open.
    int openRow() const { return m_openRow; }
    void setOpenRow(int row);

    /// Whether the keyboard is at this list; otherwise its highlight only marks the way.
    void setActive(bool isActive);

    /// Pictures may stand in lists that show none now: their column is kept free.
    void reservePictures() { m_reservesPictures = true; }

    /// In coordinates of this widget; a row may be scrolled away.
    int rowAt(const QPoint& place) const;
    QRect placeOf(int row) const;

    ScrollMotion& motion() { return m_motion; }
    void scrollBy(qreal points);
    void scrollToTop() { setOffset(0); }

    /// The row a page away from the highlighted one.
    int rowOfNextPage(int direction) const;

    /// The scroll bar: whether this place is on it, and dragging it.
    bool isOnScrollBar(const QPoint& place) const;
    void pressScrollBar(const QPoint& place);
    void dragScrollBar(const QPoint& place);
    void releaseScrollBar();
    bool isScrollBarHeld() const { return m_barGrip.has_value(); }
    void setScrollBarHovered(bool isHovered);

    /// `painted` follows the next frame.
    void expectFrame() { m_awaitsFrame = true; }

signals:
    void highlightChanged(int row);
    void painted();

    /// Other rows are under a resting pointer now.
    void scrolled();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    struct Mark {
        int row = PopoverRows::none;
        MenuItem item;
        int occurrence = 0;
    };

    Mark mark(int row) const;
    int rowOf(const Mark& mark) const;
    void layOutRows(int width);
    void reveal(int row);
    void setOffset(qreal offset);
    qreal mostOffset() const;
    int top(int row) const;
    int iconColumn() const;
    QRect scrollBar() const;
    RowState stateOf(int row) const;
    void paintRows(QPainter& painter, const QRect& part, const PopoverColors& colors);
    void paintScrollBar(QPainter& painter, const PopoverColors& colors);

    const PopoverContext& m_context;
    PopoverMetrics m_metrics;
    PopoverRows m_rows;
    ScrollMotion m_motion;
    int m_laidOutWidth = 0;
    int m_highlighted = PopoverRows::none;
    int m_openRow = PopoverRows::none;
    qreal m_offset = 0;
    std::optional<int> m_barGrip; ///< Where the scroll bar is held, below its top.
    bool m_isBarHovered = false;
    bool m_isActive = true;
    bool m_reservesPictures = false;
    bool m_awaitsFrame = false;
};

} // namespace quorvel
