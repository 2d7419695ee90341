#include "menu/FolderSnippets.h"

namespace quorvel {

FolderSnippets::FolderSnippets(const SnippetStore& store, const SmartDetector& detector,
                               const SmartPluginRegistry& registry)
    : m_store(store)
    , m_detector(detector)
    , m_registry(registry) {
    connect(&store, &SnippetStore::changed, this, [this] { m_isCurrent = false; });
}

const QList<SnippetSource>& FolderSnippets::of(SmartFolderKind folder) const {
    if (!std::exchange(m_isCurrent, true))
        collect();
    static const QList<SnippetSource> none;
    const auto found = m_sources.constFind(folder);
    return found == m_sources.constEnd() ? none : *found;
}

void FolderSnippets::prepare(const QUuid& id, const QString& text) {
    foldersOf(id, text);
}

const QList<SmartFolderKind>& FolderSnippets::foldersOf(const QUuid& id,
                                                        const QString& text) const {
    auto known = m_known.find(id);
    if (known == m_known.end() || known->text != text)
        known = m_known.insert(id, {text, m_registry.folders(m_detector.detectAutoTags(text))});
    return known->folders;
}

void FolderSnippets::collect() const {
    m_sources.clear();
    QHash<QUuid, Known> alive;
    forEachSnippet(m_store, [&](const Snippet& snippet, const QUuid& group) {
        for (const SmartFolderKind folder : foldersOf(snippet.id, snippet.text))
            m_sources[folder].append({&snippet, group});
        alive.insert(snippet.id, m_known.value(snippet.id));
    });
    m_known = std::move(alive);
}

} // namespace quorvel
