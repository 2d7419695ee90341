#pragma once

#include "ui/Icons.h"
#include "ui/Thumbnails.h"
#include "ui/popover/PopoverColors.h"
#include "ui/popover/PopoverRows.h"

#include <QPainter>

namespace quorvel {

class Pasteboard;
class StringTable;

/// What all panels of one popover share. Everything outlives them.
struct PopoverContext {
    const Icons& icons;
    const StringTable& strings;
    Pasteboard& pasteboard;
    Thumbnails& thumbnails;
    Thumbnails& previews; ///< Larger ones.
};

enum class RowState { plain, highlighted, trail };

/// Paints rows, mirrored in right-to-left layouts.
class RowPainter {
public:
    struct Surroundings {
        const PopoverContext& context;
        const PopoverMetrics& metrics;
        const PopoverColors& colors;
        int iconColumn; ///< 0 for no icons.
        Qt::LayoutDirection direction;
    };

    RowPainter(QPainter& painter, const Surroundings& surroundings);

    /// `place` is the whole row, from edge to edge of the panel.
    void paint(const MenuItem& item, const QRect& place, RowState state);
    void paintEmptyState(const MenuItem& item, const QRect& place);

private:
    enum class Cut { middle, end, never };

    void paintSeparator(const QRect& place);
    void paintHeader(const MenuItem& item, const QRect& place);
    void paintHint(const MenuItem& item, const QRect& place, RowState state);
    void paintTextBox(const MenuItem& item, const QRect& place);
    void paintItem(const MenuItem& item, const QRect& place, RowState state);
    void paintGround(const QRect& place, RowState state);
    void paintIcon(const MenuItem& item, const QRect& place, RowState state);
    bool paintThumbnail(const MenuItem& item, const QRect& place);
    int paintEnd(const MenuItem& item, const QRect& place, RowState state);
    void paintTitle(const MenuItem& item, const QRect& place, RowState state);
    void paintSymbol(const QString& symbol, int size, const QRect& place, const QColor& color);
    void paintPixmap(const QPixmap& pixmap, const QRect& place);
    void paintText(const QString& text, const QFont& font, const QColor& color, const QRect& place,
                   Cut cut);

    QColor textColor(const MenuItem& item, RowState state) const;
    QColor quietColor(const MenuItem& item, RowState state) const;
    bool isMirrored() const { return m_around.direction == Qt::RightToLeft; }

    /// Cut a part of this width off a row's beginning or end, as the direction has it.
    QRect takeBeginning(QRect& place, int width) const;
    QRect takeEnd(QRect& place, int width) const;

    QPainter& m_painter;
    const Surroundings m_around;
    const PopoverMetrics& m_metrics;
    const PopoverColors& m_colors;
};

} // namespace quorvel
