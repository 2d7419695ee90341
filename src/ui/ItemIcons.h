#pragma once

#include <QColor>
#include <QIcon>

namespace quorvel {

/// A rounded square of this colour, of any size.
QIcon swatchIcon(const QColor& colour);

/// The icon with a small pin over its lower end; the pin alone when there is no icon.
QIcon pinnedIcon(const QIcon& icon, const QIcon& pin);

} // namespace quorvel
