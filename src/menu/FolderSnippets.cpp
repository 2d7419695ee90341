#include "menu/FolderSnippets.h"

namespace quorvel {

FolderSnippets::FolderSnippets(const SnippetStore& store, const SmartDetector& detector,
                               const SmartPluginRegistry& registry)
    : m_store(store)
    , m_detector(detector)
    , m_registry(registry) {}

const QList<SnippetSource>& FolderSnippets::of(SmartFolderKind folder) const {
    if (!std::exchange(m_isCurrent, true))
        collect();
    static const QList<SnippetSource> none;
    const auto found = m_sources.constFind(folder);
    return found == m_sources.constEnd() ? none : *found;
}

bool FolderSnippets::prepareSome(int count) {
    forEachSnippet(m_store, [&](const Snippet& snippet, const QUuid&) {
        if (count > 0 && !isKnown(snippet)) {
            foldersOf(snippet);
            --count;
        }
    });
    return count == 0;
}

void FolderSnippets::invalidate() {
    m_isCurrent = false;
}

bool FolderSnippets::isKnown(const Snippet& snippet) const {
    const auto known = m_known.constFind(snippet.id);
    return known != m_known.constEnd() && known->text == snippet.text;
}

const QList<SmartFolderKind>& FolderSnippets::foldersOf(const Snippet& snippet) const {
    if (!isKnown(snippet))
        m_known.insert(snippet.id, {snippet.text, m_registry.folders(m_detector.detectAutoTags(
                                                      snippet.text))});
    return m_known[snippet.id].folders;
}

void FolderSnippets::collect() const {
    m_sources.clear();
    QHash<QUuid, Known> alive;
    forEachSnippet(m_store, [&](const Snippet& snippet, const QUuid& group) {
        for (const SmartFolderKind folder : foldersOf(snippet))
            m_sources[folder].append({group, snippet.id});
        alive.insert(snippet.id, m_known.value(snippet.id));
    });
    m_known = std::move(alive);
}

} // namespace quorvel
