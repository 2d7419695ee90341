#pragma once

#include "clipboard/ClipboardHistory.h"
#include "clipboard/PasteboardWatcher.h"
#include "foundation/MainQueue.h"
#include "paste/EditBeforePaste.h"
#include "paste/FocusTracker.h"
#include "paste/PasteOption.h"
#include "platform/KeyPoster.h"
#include "platform/Pasteboard.h"

#include <QObject>

namespace quorvel {

/// Puts a clip into the program the user was working in: writes it to the pasteboard as a write of
/// our own, gives that program the focus back and presses its paste keys.
class PasteEngine final : public QObject {
    Q_OBJECT

public:
    PasteEngine(Pasteboard& pasteboard, PasteboardWatcher& watcher, ClipboardHistory& history,
                FocusTracker& focus, Workspace& workspace, KeyPoster& keys, MainQueue& mainQueue);

    /// Pastes an entry and counts the use: with every form in which it was captured, or its text
    /// alone as plain text; a picture has none, and nothing happens. To be edited first, it is
    /// handed on by `editRequested`, and its use counts when it is pasted.
    void pasteEntry(const RecentClipboardEntry& entry, PasteOption option = PasteOption::normal);

    /// Pastes a text alone. `used` is called when it is pasted: at once, or after the edit.
    void pasteText(const QString& text, PasteOption option = PasteOption::normal,
                   const std::function<void()>& used = {});

    /// Pastes what has become of a text that was to be edited.
    void pasteEdited(const EditRequest& request, const EditBeforePasteState& state);

    /// From the focus coming back to the keys, so that the program has settled.
    static constexpr std::chrono::milliseconds targetedDelay{80};

    /// The same when no target is known.
    static constexpr std::chrono::milliseconds untargetedDelay{120};

    /// From the write to the return of what was on the pasteboard before.
    static constexpr std::chrono::milliseconds restoreDelay{120};

signals:
    /// A paste was asked for: counted whether or not its keys arrive.
    void pasted(const QString& text);

    /// The user wants to change the text first. `pasteEdited` goes on; if it is not called,
    /// nothing has happened.
    void editRequested(const quorvel::EditRequest& request);

    /// Keys cannot be posted on this desktop; told once until they could be. The clip is on the
    /// pasteboard.
    void permissionMissing();

    /// The keys were pressed, or were not because the target lost the focus; then the clip is on
    /// the pasteboard.
    void keysPosted(quorvel::PostOutcome outcome);

private:
    void requestEdit(const RecentClipboardEntry& entry);
    void write(const QList<ClipboardSnapshotItem>& items);
    void paste(const QList<ClipboardSnapshotItem>& items, PasteOption option);
    void restoreLater(const QList<ClipboardSnapshotItem>& before);
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
