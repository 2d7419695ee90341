#pragma once

#include "ui/TemplateIconEngine.h"

#include <QHash>
#include <QIcon>

namespace quorvel {

/// The embedded icons. Symbols are templates: they take the palette's text colour, follow its
/// changes, and are sharp at any scale (`QIcon::isMask` tells them from pictures).
class Icons {
public:
    Icons();

    /// The symbol of this name; a null icon when there is none.
    QIcon symbol(const QString& name) const;

    /// The same in one fixed colour.
    QIcon symbol(const QString& name, const QColor& colour) const;

    /// The product's icon in its own colours.
    QIcon application() const;

    /// The product's one-coloured icon for a tray whose background is known to go with `colour`.
    QIcon tray(const QColor& colour) const;

private:
    std::shared_ptr<TintedPictures> m_pictures;
    mutable QHash<QString, QIcon> m_symbols;
};

} // namespace quorvel
