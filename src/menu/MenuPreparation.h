#pragma once

#include "foundation/MainQueue.h"
#include "menu/MenuContent.h"

#include <QObject>

namespace quorvel {

/// Works out, a little at a time while nothing else happens, what the menu and its search would
/// otherwise have to wait for: the searched texts of clips and snippets, and the folders of the
/// snippets.
class MenuPreparation final : public QObject {
    Q_OBJECT

public:
    MenuPreparation(const MenuContent& content, FolderSnippets& folderSnippets,
                    const ClipboardHistory& history, const SnippetStore& snippets,
                    MainQueue& mainQueue);

    /// Begins, or begins again after a change.
    void start();

    static constexpr std::chrono::milliseconds delay{50};

    /// Seconds that one turn may take.
    static constexpr double turn = 0.002;

private:
    struct Waiting {
        QUuid id;
        QString text;
        bool isSnippet = false;
    };

    void begin();
    void await(const QList<RecentClipboardEntry>& entries);
    void run();
    void prepare(const Waiting& text);

    const MenuContent m_content;
    FolderSnippets& m_folderSnippets;
    MainQueue& m_mainQueue;
    QList<Waiting> m_waiting;
    WorkItem m_next;
};

} // namespace quorvel
