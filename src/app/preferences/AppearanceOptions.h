#pragma once

#include "app/preferences/Preferences.h"

namespace quorvel {

/// How the program looks. An unknown stored value reads as the first one of each.

enum class AppThemePreset { system, coffee, pizza };
enum class MenuBarIconSetOption { classic, quorvel };
enum class MenuBarIconOption { quorvel, system, clipboardText, clipboardBadge, bubble, bolt };

AppThemePreset themePreset(const Preferences& preferences);

/// Name of the embedded icon beside the clock, by the chosen set and the choice within it.
QString menuBarIcon(const Preferences& preferences);

} // namespace quorvel
