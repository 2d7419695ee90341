#pragma once

#include "app/preferences/Preferences.h"

#include <array>
#include <optional>

namespace quorvel {

/// The fixed identifiers of our hot keys. From `firstRecentClip` on, ten of them paste the clip at
/// that place of the recent ones.
enum class HotKeyId : quint32 {
    openMenu = 1,
    openTranslate = 3,
    pastePlainText = 4,
    cycleKeyboardLayout = 6,
    appendSelection = 7,
    firstRecentClip = 100,
};

/// A hot key that the user can change.
struct ConfigurableHotKey {
    HotKeyId id;
    const keys::HotKey& preference;
    const char* titleKey; ///< Of the text that says what it does.
};

/// In the order in which they are registered: of two with the same keys the first one gets them.
inline constexpr std::array<ConfigurableHotKey, 5> configurableHotKeys{{
    {HotKeyId::openMenu, keys::openMenuHotKey, "hotKey.openMenu"},
    {HotKeyId::openTranslate, keys::openTranslateHotKey, "hotKey.openTranslate"},
    {HotKeyId::pastePlainText, keys::pastePlainTextHotKey, "hotKey.pastePlainText"},
    {HotKeyId::cycleKeyboardLayout, keys::cycleKeyboardLayoutHotKey, "hotKey.cycleKeyboardLayout"},
    {HotKeyId::appendSelection, keys::appendSelectionHotKey, "hotKey.appendSelection"},
}};

/// The keys of the number row that paste recent clips, by their labels, first to last.
inline constexpr QStringView recentClipKeys = u"1234567890";
inline constexpr Modifiers recentClipModifiers = Modifier::control | Modifier::command;
inline constexpr Modifiers recentClipOptionalModifiers = Modifier::shift | Modifier::option;

/// The place among the recent clips, from 0, that the hot key pastes; nothing for another one.
std::optional<int> recentClipPosition(HotKeyId id);

} // namespace quorvel
