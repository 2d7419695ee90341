#pragma once

#include <array>
#include <cstdint>

/// Every preference key with its default and bounds: the one table from which all readers take
/// them.
namespace quorvel::keys {

struct Switch {
    const char* name;
    bool byDefault;
};

/// A stored 0 (also: nothing stored) means the default; anything else is clamped into the bounds.
struct Number {
    const char* name;
    int byDefault;
    int lowest;
    int highest;
};

struct Text {
    const char* name;
    const char* byDefault;
};

struct HotKey {
    const char* name;
    char key;
    std::uint32_t modifiers;
};

/// Counters, lists, dictionaries and encoded records that are remembered, with no bounds here.
struct Record {
    const char* name;
};

/// A list of addresses, and where one comes from when no list is stored.
struct BaseUrls {
    const char* name;
    const char* formerName = nullptr; ///< Of a single text.
    const char* environmentVariable = nullptr;
};

inline constexpr std::uint32_t shiftCommand = 0x120000;
inline constexpr std::uint32_t controlShift = 0x60000;

inline constexpr Number clipboardHistoryLimit{"clipboardHistoryLimit", 5, 1, 50};
inline constexpr Switch menuSearchEnabled{"menuSearchEnabled", true};
inline constexpr Number menuSearchResultLimit{"menuSearchResultLimit", 5, 1, 20};
inline constexpr Switch sectionCountersEnabled{"sectionCountersEnabled", true};
inline constexpr Switch customMenuEnabled{"customMenuEnabled", true};
inline constexpr Switch hintsEnabled{"hintsEnabled", true};
inline constexpr Switch smartSortingEnabled{"smartSortingEnabled", false};
inline constexpr Switch sensitiveDataMaskingEnabled{"sensitiveDataMaskingEnabled", true};
inline constexpr Switch smartFolderMostUsedEnabled{"smartFolderMostUsedEnabled", true};
inline constexpr Number smartFolderMostUsedThreshold{"smartFolderMostUsedThreshold", 3, 1, 50};
inline constexpr Switch translationEnabled{"translationEnabled", true};
inline constexpr Text translationTargetLanguageCode{"translationTargetLanguageCode", "en"};
inline constexpr BaseUrls ticketTrackerBaseURLs{"ticketTrackerBaseURLs", "jiraBaseURL",
                                                "QUORVEL_JIRA_BASE_URL"};
inline constexpr BaseUrls pullRequestBaseURLs{"pullRequestBaseURLs"};
inline constexpr HotKey openMenuHotKey{"openMenuHotKey", 'v', shiftCommand};
inline constexpr HotKey openTranslateHotKey{"openTranslateHotKey", 't', shiftCommand};
inline constexpr HotKey pastePlainTextHotKey{"pastePlainTextHotKey", 'v', controlShift};
inline constexpr HotKey cycleKeyboardLayoutHotKey{"cycleKeyboardLayoutHotKey", 'x', controlShift};
/// The layout that the last press of the hot key has turned a text into.
inline constexpr Text cycleKeyboardLayoutLastTargetID{"cycleKeyboardLayout.lastTargetID", ""};
inline constexpr HotKey appendSelectionHotKey{"appendSelectionHotKey", 'a', shiftCommand};
inline constexpr Switch autoUpdateEnabled{"updates.autoUpdateEnabled", false};
inline constexpr Text selectedTheme{"support.selectedTheme", "system"};
inline constexpr Text selectedIconSet{"support.selectedIconSet", "classic"};
inline constexpr Text selectedIcon{"support.selectedIcon", "quorvel"};
inline constexpr Text selectedHeroIconSet{"support.selectedHeroIconSet", "quorvel"};

/// In the order of the smart folder kinds.
inline constexpr std::array<Switch, 17> smartFolderSwitches{{
    {"smartFolderScreenshotsEnabled", true},
    {"smartFolderImagesEnabled", true},
    {"smartFolderTicketsEnabled", true},
    {"smartFolderPullRequestsEnabled", true},
    {"smartFolderCodeEnabled", true},
    {"smartFolderTerminalCommandsEnabled", true},
    {"smartFolderCardsEnabled", true},
    {"smartFolderColorsEnabled", true},
    {"smartFolderNamesEnabled", true},
    {"smartFolderEmailsEnabled", true},
    {"smartFolderLinksEnabled", true},
    {"smartFolderPhonesEnabled", true},
    {"smartFolderDatesEnabled", true},
    {"smartFolderAddressesEnabled", true},
    {"smartFolderUUIDsEnabled", true},
    {"smartFolderIBANsEnabled", true},
    {"smartFolderIPAddressesEnabled", true},
}};

inline constexpr Record pinnedClipboardTexts{"pinnedClipboardTexts"};
inline constexpr Record pinnedClipboardExpirations{"pinnedClipboardExpirations"};
inline constexpr Record smartFolderPinnedClipboardTexts{"smartFolderPinnedClipboardTexts"};
inline constexpr Record smartFolderPinnedClipboardExpirations{
    "smartFolderPinnedClipboardExpirations"};
inline constexpr Switch launchAtLoginPromptShown{"launchAtLoginPromptShown", false};
inline constexpr Record altModeUsageCount{"altModeUsageCount"};
inline constexpr Record altHintMenuOpenCount{"altHintMenuOpenCount"};
inline constexpr Switch reviewPromptDoNotAskAgain{"reviewPromptDoNotAskAgain", false};
inline constexpr Number reviewPromptNextUsageThreshold{"reviewPromptNextUsageThreshold", 1000,
                                                       INT32_MIN, INT32_MAX};
inline constexpr Switch autoUpdateEnabledHasBeenSet{"updates.autoUpdateEnabledHasBeenSet", false};
inline constexpr Switch sparkleMigratedLegacyPreference{"updates.sparkleMigratedLegacyPreference",
                                                        false};
inline constexpr Record lastPromptedVersion{"updates.lastPromptedVersion"};
inline constexpr Record achievementSnapshot{"quorvel.achievementSnapshot.v1"};
inline constexpr Switch debugMenuTimings{"debug.menuTimings", false};

} // namespace quorvel::keys
