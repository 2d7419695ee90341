#include "menu/MenuPreparation.h"

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

void MenuPreparation::begin() {
    m_waiting.clear();
    for (const RecentClipboardEntry& entry : m_content.history.recentClipboard())
        if (!entry.isImage())
            m_waiting.append({entry.id, entry.text});
    forEachSnippet(m_content.snippets, [this](const Snippet& snippet, const QUuid&) {
        m_waiting.append({snippet.id, snippet.text, true});
    });
    QSet<QUuid> ids;
    for (const Waiting& waiting : m_waiting)
        ids.insert(waiting.id);
    m_content.searchTexts.retain(ids);
    run();
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
