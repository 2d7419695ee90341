#pragma once

#include "foundation/StringTable.h"
#include "ui/Icons.h"
#include "ui/Thumbnails.h"
#include "ui/popover/PopoverColors.h"
#include "ui/popover/PopoverRows.h"

#include <QPainter>

namespace quorvel {

/// What all panels of one popover share. Everything outlives them.
struct PopoverContext {
    const Icons& icons;
    Thumbnails& thumbnails;
    const StringTable& strings;
};

enum class RowState { plain, highlighted, submenuOpen };

/// Paints rows of the popover, mirrored in right-to-left layouts.
class RowPainter {
public:
    RowPainter(QPainter& painter, const PopoverContext& context, const PopoverMetrics& metrics,
               const PopoverColors& colors, Qt::LayoutDirection direction);

    /// `place` is the whole row, from edge to edge of the panel.
    void paint(const PopoverRow& row, const QRect& place, RowState state);

private:
    void paintSeparator(const QRect& place);
    void paintHeader(const MenuItem& item, const QRect& place);
    void paintHint(const MenuItem& item, const QRect& place);
    void paintTextBox(const MenuItem& item, const QRect& place);
    void paintItem(const MenuItem& item, const QRect& place, RowState state);
    void paintPlaceholder(const MenuItem& item, const QRect& place);
    void paintPicture(const MenuItem& item, const QRect& place, RowState state);
    void paintTitle(const MenuItem& item, const QRect& place, RowState state);
    void paintSymbol(const QString& symbol, const QRect& place, const QColor& color);
    void paintText(const QString& text, const QFont& font, const QColor& color, const QRect& place,
                   Qt::TextElideMode elide = Qt::ElideMiddle);
    int paintEnd(const MenuItem& item, const QRect& place, RowState state);

    QColor textColor(const MenuItem& item, RowState state) const;
    QColor quietColor(RowState state) const;
    bool isMirrored() const { return m_direction == Qt::RightToLeft; }

    /// Cuts a part of this width off the row's beginning or its end, as the direction has it.
    QRect takeBeginning(QRect& place, int width) const;
    QRect takeEnd(QRect& place, int width) const;

    QPainter& m_painter;
    const PopoverContext& m_context;
    const PopoverMetrics& m_metrics;
    const PopoverColors& m_colors;
    const Qt::LayoutDirection m_direction;
};

} // namespace quorvel
