#pragma once

#include "ui/popover/RowPainter.h"

#include <QWidget>

#include <optional>

namespace quorvel {

/// The rows of one panel: shows the part that fits, scrolls, and carries the highlight. Only what
/// is visible is painted.
class PopoverList final : public QWidget {
    Q_OBJECT

public:
    PopoverList(const PopoverContext& context, QWidget* parent);

    /// Shows these items. The highlight stays on its item, and what is seen stays in its place.
    void setItems(const QList<MenuItem>& items, int width);

    const PopoverRows& rows() const { return m_rows; }
    int highlighted() const { return m_highlighted; }

    enum class Reveal { no, yes };

    /// `PopoverRows::none` for no highlight.
    void highlight(int row, Reveal reveal = Reveal::yes);

    /// The row whose submenu is open, or none.
    void setOpenSubmenu(int row);

    /// Gives the submenu of this identifier its items; false when there is none.
    bool fillSubmenu(const QString& identifier, const QList<MenuItem>& items);

    /// The row under a place in this widget, or none.
    int rowAt(const QPoint& place) const;

    /// The place of a row in this widget; parts of it may be scrolled away.
    QRect placeOf(int row) const;

    void scrollBy(int points);
    void scrollToStart();
    int rowsPerPage() const;

    /// Drags the scroll bar: whether the press was on it, then where to, in points.
    bool pressScrollBar(const QPoint& place);
    bool dragScrollBar(const QPoint& place);
    void releaseScrollBar() { m_barGrip.reset(); }

    void refreshPictures() { update(); }

signals:
    void highlightChanged(int row);

    /// The first paint since the last `expectPaint` is done.
    void painted();

public:
    void expectPaint() { m_awaitsPaint = true; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void setOffset(int offset);
    int mostOffset() const;
    QRect scrollBarPlace() const;
    RowState stateOf(int row) const;

    const PopoverContext& m_context;
    PopoverRows m_rows;
    int m_highlighted = PopoverRows::none;
    int m_openSubmenu = PopoverRows::none;
    int m_offset = 0;
    std::optional<int> m_barGrip; ///< Where the scroll bar is held, below its top.
    bool m_awaitsPaint = false;
};

} // namespace quorvel
