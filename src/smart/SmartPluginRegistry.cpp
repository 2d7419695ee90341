#include "smart/SmartPluginRegistry.h"

namespace quorvel {

SmartPluginRegistry::SmartPluginRegistry(
    std::vector<std::unique_ptr<SmartTypePlugin>> typePlugins,
    std::vector<std::unique_ptr<SmartFolderPlugin>> folderPlugins)
    : m_typePlugins(std::move(typePlugins))
    , m_folderPlugins(std::move(folderPlugins)) {
    for (const auto& plugin : m_folderPlugins) {
        if (m_folderPluginsByFolder.contains(plugin->folder()))
            qFatal("Duplicate values for key: '%s'", qUtf8Printable(rawName(plugin->folder())));
        m_folderPluginsByFolder.insert(plugin->folder(), plugin.get());
    }
}

QSet<ClipboardAutoTag> SmartPluginRegistry::tags(const QString& text,
                                                 const SmartDetectionUtilities& utilities) const {
    QSet<ClipboardAutoTag> found;
    for (const auto& plugin : m_typePlugins)
        if (plugin->matches(text, utilities))
            found.insert(plugin->tag());
    return found;
}

const SmartFolderPlugin* SmartPluginRegistry::folderPlugin(SmartFolderKind folder) const {
    return m_folderPluginsByFolder.value(folder, nullptr);
}

QList<SmartFolderKind> SmartPluginRegistry::folders(const QList<ClipboardAutoTag>& tags) const {
    const QSet<ClipboardAutoTag> set(tags.begin(), tags.end());
    QList<SmartFolderKind> found;
    for (const SmartFolderKind folder : allSmartFolders())
        if (const SmartFolderPlugin* plugin = folderPlugin(folder); plugin && plugin->matches(set))
            found.append(folder);
    return found;
}

} // namespace quorvel
