#include "ui/MenuRowLook.h"

#include <QToolTip>
#include <QWidget>

namespace quorvel {

namespace {

QFont smallFont(QFont font) {
    constexpr qreal share = 0.86;
    if (font.pointSizeF() > 0)
        font.setPointSizeF(font.pointSizeF() * share);
    else
        font.setPixelSize(qRound(font.pixelSize() * share));
    return font;
}

} // namespace

bool isEnabledRow(const MenuItem& item) {
    const bool isHintToChoose = isKind(item, MenuItemKind::hint) && item.action != MenuAction::none;
    return item.enabled && (isKind(item, MenuItemKind::ordinary) || isHintToChoose);
}

QFont rowFont(const MenuItem& item, const QFont& menuFont) {
    QFont font;
    if (isKind(item, MenuItemKind::hint) || isKind(item, MenuItemKind::header))
        font = smallFont(menuFont);
    if (isKind(item, MenuItemKind::header))
        font.setWeight(QFont::DemiBold);
    return font;
}

void makeQuiet(QPalette& palette) {
    constexpr float opacity = 0.6F;
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
        QColor colour = palette.color(QPalette::Active, role);
        colour.setAlphaF(opacity);
        palette.setColor(QPalette::Disabled, role, colour);
    }
}

/// A tool tip below the pointer would cover the rows that come next. Its usual colours do not
/// follow a dark palette.
void showBeside(QWidget& menu, const QRect& row, const QString& text) {
    constexpr QPoint toolTipOffset(2, 16); // The toolkit adds it to make room for the pointer.
    constexpr int gap = 4;
    QPalette colours = QToolTip::palette();
    colours.setColor(QPalette::ToolTipBase, menu.palette().color(QPalette::Base));
    colours.setColor(QPalette::ToolTipText, menu.palette().color(QPalette::Text));
    QToolTip::setPalette(colours);
    const QPoint corner = menu.mapToGlobal(QPoint(menu.width() + gap, row.top()));
    QToolTip::showText(corner - toolTipOffset, text, &menu, row);
}

} // namespace quorvel
