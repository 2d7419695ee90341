#pragma once

#include "clipboard/ClipboardHistory.h"
#include "clipboard/PasteboardWatcher.h"
#include "foundation/MainQueue.h"
#include "paste/FocusTracker.h"
#include "platform/KeyPoster.h"
#include "platform/Pasteboard.h"

#include <QObject>
#include <QUuid>

namespace quorvel {

/// Puts a clip into the program the user was working in: writes it to the pasteboard as a write of
/// our own, gives that program the focus back and presses its paste keys.
class PasteEngine final : public QObject {
    Q_OBJECT

public:
    PasteEngine(Pasteboard& pasteboard, PasteboardWatcher& watcher, ClipboardHistory& history,
                FocusTracker& focus, Workspace& workspace, KeyPoster& keys, MainQueue& mainQueue);

    /// Pastes an entry with every form in which it was captured and counts the use. Nothing
    /// happens when no entry has this id.
    void pasteRecentSnippet(const QUuid& id);

    /// From the focus coming back to the keys, so that the program has settled.
    static constexpr std::chrono::milliseconds targetedDelay{80};

    /// The same when no target is known.
    static constexpr std::chrono::milliseconds untargetedDelay{120};

signals:
    void entryPasted(const QUuid& id);

    /// Keys cannot be posted on this desktop; told once until they could be. The clip is on the
    /// pasteboard.
    void permissionMissing();

    /// The keys were pressed, or were not because the target lost the focus; then the clip is on
    /// the pasteboard.
    void keysPosted(quorvel::PostOutcome outcome);

private:
    void write(const RecentClipboardEntry& entry);
    void requestPasteKeystroke();
    void post(const std::optional<FocusTarget>& target);

    Pasteboard& m_pasteboard;
    PasteboardWatcher& m_watcher;
    ClipboardHistory& m_history;
    FocusTracker& m_focus;
    Workspace& m_workspace;
    KeyPoster& m_keys;
    MainQueue& m_mainQueue;
    bool m_hasShownPastePermissionAlert = false;
};

/// What goes to the pasteboard for an entry: its captured forms with the text among them, or its
/// text or picture when the forms are not kept any more.
QList<ClipboardSnapshotItem> pasteboardItems(const RecentClipboardEntry& entry);

} // namespace quorvel
