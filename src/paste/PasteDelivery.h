#pragma once

#include "clipboard/PasteboardWatcher.h"
#include "foundation/MainQueue.h"
#include "paste/ClipboardTurns.h"
#include "paste/FocusTracker.h"
#include "platform/KeyPoster.h"
#include "platform/Pasteboard.h"

#include <QObject>

#include <optional>

namespace quorvel {

/// What is on the pasteboard when a paste is done.
enum class Afterwards { pasted, whatWasBefore };

/// What has become of the pastes since the start, for the status report.
struct PasteCounts {
    qint64 asked = 0;
    qint64 posted = 0;
    qint64 fetched = 0; ///< As far as it can be seen.
};

/// Brings contents into the program the user was working in, one after the other: writes each to
/// the pasteboard as a write of our own, gives that program the focus back, presses its paste keys
/// and, when asked to, puts back what was on the pasteboard before.
class PasteDelivery final : public QObject {
    Q_OBJECT

public:
    PasteDelivery(Pasteboard& pasteboard, PasteboardWatcher& watcher, FocusTracker& focus,
                  Workspace& workspace, KeyPoster& keys, ClipboardTurns& turns,
                  MainQueue& mainQueue);

    /// At once, or when it has its turn with the clipboard: a paste that overtakes another would
    /// put its own content in the place of that one's. Without the keys when the user has gone to
    /// another program than the target by then.
    void deliver(const QList<ClipboardSnapshotItem>& items, Afterwards afterwards,
                 const std::optional<FocusTarget>& target);

    /// Into the program that had the focus last.
    void deliver(const QList<ClipboardSnapshotItem>& items, Afterwards afterwards) {
        deliver(items, afterwards, m_focus.target());
    }

    const PasteCounts& counts() const { return m_counts; }

    /// From the focus coming back to the keys, so that the program has settled.
    static constexpr std::chrono::milliseconds targetedDelay{80};

    /// The same when no target is known.
    static constexpr std::chrono::milliseconds untargetedDelay{120};

    /// From the write to the return of what was on the pasteboard before.
    static constexpr std::chrono::milliseconds restoreDelay{120};

    /// How long the next paste waits for the target to fetch this one.
    static constexpr std::chrono::milliseconds fetchPatience{1500};

signals:
    /// Keys cannot be posted on this desktop; told once until they could be. The content is on the
    /// pasteboard.
    void permissionMissing();

    /// The keys were pressed, or were not because the target lost the focus; then the content is
    /// on the pasteboard, whatever was there before.
    void keysPosted(quorvel::PostOutcome outcome);

private:
    struct Delivery {
        QList<ClipboardSnapshotItem> items;
        Afterwards afterwards = Afterwards::pasted;
        std::optional<FocusTarget> target = {};
        QList<ClipboardSnapshotItem> before = {};
        qint64 written = 0; ///< The change count.
        bool arePosted = false;
        bool isFetched = false;
        bool isRestoreDue = false;
        bool isRestored = false;
    };

    void start(const Delivery& delivery);
    void write(const QList<ClipboardSnapshotItem>& items);
    bool mayPressKeys();
    bool isInFront(const std::optional<FocusTarget>& target) const;
    void pressKeys();
    void keysDone(PostOutcome outcome);
    void mark(bool Delivery::*step);
    void advance();
    void restore();
    void finish();

    Pasteboard& m_pasteboard;
    PasteboardWatcher& m_watcher;
    FocusTracker& m_focus;
    Workspace& m_workspace;
    KeyPoster& m_keys;
    ClipboardTurns& m_turns;
    MainQueue& m_mainQueue;
    std::optional<Delivery> m_current;
    PasteCounts m_counts;
    WorkItem m_restoreTimer;
    WorkItem m_patience;
    bool m_hasShownPastePermissionAlert = false;
};

} // namespace quorvel
