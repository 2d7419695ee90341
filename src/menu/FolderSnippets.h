#pragma once

#include "smart/SmartDetector.h"
#include "smart/SmartFolderKind.h"
#include "snippets/SnippetStore.h"

#include <QHash>
#include <QObject>

namespace quorvel {

/// A snippet and where it stands; valid until the library changes.
struct SnippetSource {
    const Snippet* snippet;
    QUuid group; ///< Null at the root.
};

/// Which snippets belong into which smart folder, by what their texts are. Each text is looked at
/// once; all answers are true to the library as it is now.
class FolderSnippets final : public QObject {
    Q_OBJECT

public:
    FolderSnippets(const SnippetStore& store, const SmartDetector& detector,
                   const SmartPluginRegistry& registry);

    /// In the library's order: root snippets, then the groups'.
    const QList<SnippetSource>& of(SmartFolderKind folder) const;

    /// Looks at the text of one snippet now, so that no menu has to wait for it.
    void prepare(const QUuid& id, const QString& text);

private:
    struct Known {
        QString text; ///< Shares the snippet's memory.
        QList<SmartFolderKind> folders;
    };

    const QList<SmartFolderKind>& foldersOf(const QUuid& id, const QString& text) const;
    void collect() const;

    const SnippetStore& m_store;
    const SmartDetector& m_detector;
    const SmartPluginRegistry& m_registry;
    mutable QHash<QUuid, Known> m_known;
    mutable QHash<SmartFolderKind, QList<SnippetSource>> m_sources;
    mutable bool m_isCurrent = false;
};

/// Calls `use(snippet, group)` for every snippet of the library, in its order; the group is null at
/// the root.
template <typename Use>
void forEachSnippet(const SnippetStore& store, const Use& use) {
    for (const Snippet& snippet : store.rootSnippets())
        use(snippet, QUuid());
    for (const SnippetGroup& group : store.groups())
        for (const Snippet& snippet : group.snippets)
            use(snippet, group.id);
}

} // namespace quorvel
