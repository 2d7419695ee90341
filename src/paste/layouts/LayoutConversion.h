#pragma once

#include "platform/KeyboardLayouts.h"

#include <QStringList>

namespace quorvel {

/// One character of a text, as people see characters, and how it is typed.
struct TypedCharacter {
    QString character;

    /// In their order: a dead key comes before the letter that it marks. Empty when the layout has
    /// no keys for it.
    QList<KeyboardLayoutStroke> strokes;
};

/// The text as it is typed in the layout.
QList<TypedCharacter> typed(QStringView text, const KeyboardLayoutMap& source);

/// What the same keys give in another layout; what has no keys in either one stays as it is.
QString retyped(const QList<TypedCharacter>& characters, const KeyboardLayoutMap& target);

} // namespace quorvel
