#pragma once

#include "app/preferences/Preferences.h"
#include "foundation/Date.h"
#include "smart/SmartFolderKind.h"

#include <optional>

namespace quorvel {

/// Which clips are pinned inside which smart folder, remembered by identity key in the preferences.
class SmartFolderPins {
public:
    explicit SmartFolderPins(Preferences& preferences)
        : m_preferences(preferences) {}

    bool isPinned(SmartFolderKind folder, const QString& key) const;

    /// When the pin lapses; absent for a pin without end and for no pin.
    std::optional<Date> expiry(SmartFolderKind folder, const QString& key) const;

    void pin(SmartFolderKind folder, const QString& key, std::optional<Date> until);
    void unpin(SmartFolderKind folder, const QString& key);

    /// Unpins it in all folders.
    void forget(const QString& key);

    void dropExpired(Date now);

private:
    Preferences& m_preferences;
};

} // namespace quorvel
