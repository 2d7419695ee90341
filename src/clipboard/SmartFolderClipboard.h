#pragma once

#include "clipboard/ClipboardHistory.h"
#include "clipboard/SmartFolderPins.h"
#include "smart/SmartPluginRegistry.h"

#include <QHash>
#include <QObject>

namespace quorvel {

/// The clips of each smart folder, newest first, each identity once. A folder goes on showing a
/// clip that the history has dropped for its number of clips; one that the user deletes goes from
/// the folders too. The entries hold text, picture and tags; captured forms stay with the history.
class SmartFolderClipboard final : public QObject {
    Q_OBJECT

public:
    /// Follows the history from here on.
    SmartFolderClipboard(const SmartPluginRegistry& registry, const ClipboardHistory& history,
                         Preferences& preferences, const Clock& clock);

    const QList<RecentClipboardEntry>& entries(SmartFolderKind folder) const;

    /// In the history, else in a folder; null when neither has it. Valid until the next change.
    const RecentClipboardEntry* entry(const QUuid& id) const;

    /// The folders that are switched on, in order.
    QList<SmartFolderKind> enabledSmartFolders() const;

    /// Fills the folders from the history alone.
    void rebuild();

    void pin(SmartFolderKind folder, const QUuid& id, std::optional<std::chrono::seconds> span);
    void unpin(SmartFolderKind folder, const QUuid& id);
    bool isPinned(SmartFolderKind folder, const RecentClipboardEntry& entry) const;

    static constexpr qsizetype smartFolderStorageLimit = 300;

    /// Most bytes of text and pictures in one folder that the history has dropped already.
    static constexpr qsizetype mostDroppedBytes = 8 * 1024 * 1024;

signals:
    void changed();

private:
    void put(const RecentClipboardEntry& entry);
    void update(const RecentClipboardEntry& entry);
    void remove(const QString& identityKey);
    void trim(SmartFolderKind folder);

    const SmartPluginRegistry& m_registry;
    const ClipboardHistory& m_history;
    const Preferences& m_preferences;
    const Clock& m_clock;
    SmartFolderPins m_pins;
    QHash<SmartFolderKind, QList<RecentClipboardEntry>> m_smartFolderClipboard;
};

} // namespace quorvel
