#pragma once

#include "clipboard/ClipboardHistory.h"
#include "foundation/MainQueue.h"
#include "platform/Pasteboard.h"
#include "platform/Workspace.h"
#include "smart/SmartDetector.h"

#include <QObject>
#include <QSet>

namespace quorvel {

/// Records what other programs copy. Every move of the pasteboard's change count that is not our
/// own write, and not inside a moment of suppression, becomes an entry of the history.
class PasteboardWatcher final : public QObject {
    Q_OBJECT

public:
    PasteboardWatcher(Pasteboard& pasteboard, const Workspace& workspace,
                      const SmartDetector& detector, ClipboardHistory& history, const Clock& clock,
                      MainQueue& mainQueue);

    /// From now on changes are recorded: as they are announced, else by a poll.
    void start();
    void stop();

    /// Looks at the change count once; what stands behind it is recorded if it is news.
    void tick();

    /// Records what is on the pasteboard now, whatever the count says.
    void capture();

    /// The count that a write of our own produced: it will not be recorded. The 12 highest are
    /// remembered.
    void markOwnWrite(qint64 changeCount);

    /// Nothing is recorded for this long; what is on the pasteboard now never is.
    void suppressCapture(std::chrono::milliseconds duration);

    /// Notes the present count as dealt with.
    void noteChangeCount();

    qint64 pasteboardChangeCount() const { return m_pasteboardChangeCount; }
    const QSet<qint64>& ignoredPasteboardChangeCounts() const {
        return m_ignoredPasteboardChangeCounts;
    }

    static constexpr std::chrono::milliseconds pollInterval{800};
    static constexpr int mostIgnoredCounts = 12;

private:
    void captureLate(const PasteboardContent& content);
    void insert(const PasteboardContent& content);

    Pasteboard& m_pasteboard;
    const Workspace& m_workspace;
    const SmartDetector& m_detector;
    ClipboardHistory& m_history;
    const Clock& m_clock;
    MainQueue& m_mainQueue;
    qint64 m_pasteboardChangeCount;
    QSet<qint64> m_ignoredPasteboardChangeCounts;
    Date m_suppressClipboardCaptureUntil = Date::distantPast();
    WorkItem m_clipboardTimer;
    WorkItem m_afterSuppression;
    QMetaObject::Connection m_announcements;
    QMetaObject::Connection m_lateArrivals;
};

} // namespace quorvel
