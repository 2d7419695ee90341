#pragma once

#include "smart/SmartFolderPlugin.h"
#include "smart/SmartTypePlugin.h"

#include <QHash>

namespace quorvel {

/// All plugins; never changes after it was made.
class SmartPluginRegistry {
public:
    SmartPluginRegistry()
        : SmartPluginRegistry(makeTypePlugins(), makeFolderPlugins()) {}

    /// Two plugins for one folder are a programming error and end the process.
    SmartPluginRegistry(std::vector<std::unique_ptr<SmartTypePlugin>> typePlugins,
                        std::vector<std::unique_ptr<SmartFolderPlugin>> folderPlugins);

    /// Asks every type plugin, in order.
    QSet<ClipboardAutoTag> tags(const QString& text,
                                const SmartDetectionUtilities& utilities) const;

    /// Null for a folder that has none.
    const SmartFolderPlugin* folderPlugin(SmartFolderKind folder) const;

    /// The folders that an entry with these tags belongs into, in their order.
    QList<SmartFolderKind> folders(const QList<ClipboardAutoTag>& tags) const;

    const std::vector<std::unique_ptr<SmartTypePlugin>>& typePlugins() const {
        return m_typePlugins;
    }

private:
    std::vector<std::unique_ptr<SmartTypePlugin>> m_typePlugins;
    std::vector<std::unique_ptr<SmartFolderPlugin>> m_folderPlugins;
    QHash<SmartFolderKind, const SmartFolderPlugin*> m_folderPluginsByFolder;
};

} // namespace quorvel
