#pragma once

#include "platform/x11/XkbLayoutMaps.h"
#include "support/FakeKeyboardLayouts.h"

namespace quorvel {

/// The layouts of this name in the system's keyboard data, such as "us,de,us(dvorak)". What cannot
/// be made is an exception.
QList<KeyboardLayoutMap> realLayouts(const QString& ids);

} // namespace quorvel
