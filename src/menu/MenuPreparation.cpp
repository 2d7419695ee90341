#include "menu/MenuPreparation.h"

#include <algorithm>

namespace quorvel {

MenuPreparation::MenuPreparation(const MenuContent& content, FolderSnippets& folderSnippets,
                                 const ClipboardHistory& history, const SnippetStore& snippets,
                                 MainQueue& mainQueue)
    : m_content(content)
    , m_folderSnippets(folderSnippets)
    , m_mainQueue(mainQueue) {
    connect(&history, &ClipboardHistory::changed, this, &MenuPreparation::start);
    connect(&snippets, &SnippetStore::changed, this, &MenuPreparation::start);
}

void MenuPreparation::start() {
    m_next.cancel();
    m_next = m_mainQueue.after(delay, this, [this] { begin(); });
}

/// The newest clips are looked for first, so they wait last; a clip in a folder twice costs
/// nothing.
void MenuPreparation::begin() {
    m_waiting.clear();
    forEachSnippet(m_content.snippets, [this](const Snippet& snippet, const QUuid&) {
        m_waiting.append({snippet.id, snippet.text, true});
    });
    for (const SmartFolderKind folder : m_content.smartFolders.enabledSmartFolders())
        await(m_content.smartFolders.entries(folder));
    await(m_content.history.recentClipboard());
    QSet<QUuid> ids;
    for (const Waiting& waiting : m_waiting)
        ids.insert(waiting.id);
    m_content.searchTexts.retain(ids);
    run();
}

void MenuPreparation::await(const QList<RecentClipboardEntry>& entries) {
    std::for_each(entries.rbegin(), entries.rend(), [this](const RecentClipboardEntry& entry) {
        if (!entry.isImage())
            m_waiting.append({entry.id, entry.text});
    });
}

void MenuPreparation::run() {
    const double end = m_content.clock.uptime() + turn;
    while (!m_waiting.isEmpty()) {
        if (m_content.clock.uptime() >= end) {
            m_next = m_mainQueue.after({}, this, [this] { run(); });
            return;
        }
        prepare(m_waiting.takeLast());
    }
}

void MenuPreparation::prepare(const Waiting& text) {
    m_content.searchTexts.prepare(text.id, text.text);
    if (text.isSnippet)
        m_folderSnippets.prepare(text.id, text.text);
}

} // namespace quorvel
