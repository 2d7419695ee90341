#pragma once

#include "menu/MenuItem.h"

#include <QFont>
#include <QPalette>

class QWidget;

namespace quorvel {

inline bool isKind(const MenuItem& item, MenuItemKind kind) {
    return item.kind == kind;
}

/// Whether the row can be highlighted and chosen.
bool isEnabledRow(const MenuItem& item);

/// The font of the row in a menu of this font.
QFont rowFont(const MenuItem& item, const QFont& menuFont);

/// Makes disabled texts paler than a row to choose, and still to be read well.
void makeQuiet(QPalette& palette);

/// Shows a tool tip beside the menu, at the height of the row.
void showBeside(QWidget& menu, const QRect& row, const QString& text);

} // namespace quorvel
