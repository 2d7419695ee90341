#pragma once

#include "app/preferences/Preferences.h"
#include "foundation/Date.h"

#include <QString>

#include <optional>

namespace quorvel {

/// Which clips are pinned, remembered by identity key in the preferences, so that a clip that is
/// copied again comes back pinned.
class ClipboardPins {
public:
    explicit ClipboardPins(Preferences& preferences);

    /// Cheap questions that spare the identity key of a picture.
    bool areNone() const;
    bool areInFolders() const;

    bool isPinned(const QString& key) const;

    /// When the pin of this key lapses; absent for a pin without end and for no pin.
    std::optional<Date> expiry(const QString& key) const;

    /// Whether the key is pinned inside any smart folder.
    bool isPinnedInFolder(const QString& key) const;

    void pin(const QString& key, std::optional<Date> until);
    void unpin(const QString& key);

private:
    Preferences& m_preferences;
};

} // namespace quorvel
