#pragma once

#include "app/preferences/AppearanceOptions.h"

namespace quorvel {

/// The colours of all windows and menus.
class Appearance {
public:
    virtual ~Appearance() = default;

    /// From now on; the system's theme is followed as it changes.
    virtual void apply(AppThemePreset theme) = 0;
};

} // namespace quorvel
