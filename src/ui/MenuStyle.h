#pragma once

#include <QProxyStyle>
#include <QStyleOptionMenuItem>

namespace quorvel {

/// The desktop's style with what our menus need beyond it: one column for icons and thumbnails,
/// small captions, and a menu that does not mind the Alt key.
class MenuStyle final : public QProxyStyle {
    Q_OBJECT

public:
    static constexpr int iconSize = 18;   ///< Points.
    static constexpr int iconColumn = 30; ///< Points, wide enough for a thumbnail.
    static constexpr int mostTitleWidth = 440;

    static constexpr int sideMargin = 10;

    /// Marks a row as a caption, or as a text of several lines, in its style option.
    static constexpr State captionState = State_Small;
    static constexpr State textState = State_ReadOnly;

    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* result) const override;

private:
    void drawCaption(const QStyleOptionMenuItem& row, QPainter* painter) const;
    void drawText(const QStyleOptionMenuItem& row, QPainter* painter) const;
    void drawRow(const QStyleOptionMenuItem& row, QPainter* painter, const QWidget* widget) const;
};

} // namespace quorvel
