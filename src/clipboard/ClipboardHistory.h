#pragma once

#include "app/preferences/Preferences.h"
#include "clipboard/ClipboardPins.h"
#include "clipboard/RecentClipboardEntry.h"
#include "foundation/Clock.h"

#include <QObject>

namespace quorvel {

/// What was read from the pasteboard at one moment.
struct ClipboardCapture {
    QString text;
    QList<ClipboardSnapshotItem> payloadItems;
    QByteArray imagePNGData;
    QList<ClipboardAutoTag> autoTags;
    std::optional<QString> sourceAppName;
    std::optional<QString> sourceAppBundleIdentifier;
};

/// The clips, newest first, each identity key once. Bounded in count by the preferences and in
/// memory by fixed budgets. Tells every change, so that others can keep, show and count it.
class ClipboardHistory final : public QObject {
    Q_OBJECT

public:
    ClipboardHistory(Preferences& preferences, const Clock& clock);

    const QList<RecentClipboardEntry>& recentClipboard() const { return m_recentClipboard; }

    /// Null when no entry has this id (any more); valid until the next change.
    const RecentClipboardEntry* entry(const QUuid& id) const;

    /// Takes over what was stored: drops duplicates, applies remembered pins, trims. Silent.
    void restore(QList<RecentClipboardEntry> entries);

    /// Puts a capture at the top; an older entry of the same identity gives it its pin and usage
    /// count and goes.
    void insert(const ClipboardCapture& capture);

    /// Counts a use and moves the entry to the top; one that was dropped here and that a smart
    /// folder still has comes back.
    void bump(const RecentClipboardEntry& entry);

    /// For good, also when it was pinned for a while.
    void pin(const QUuid& id);
    void togglePin(const QUuid& id);
    void pinFor(const QUuid& id, std::chrono::seconds span);
    void remove(const QUuid& id);
    void dropExpiredPins();

    /// Most bytes of text and pictures together; the oldest unpinned entries go first.
    static constexpr qsizetype mostContentBytes = 128 * 1024 * 1024;

    /// Most bytes of captured forms together; beyond, the oldest entries keep only their text or
    /// picture.
    static constexpr qsizetype mostPayloadBytes = 64 * 1024 * 1024;

signals:
    /// A capture is at the top now.
    void entryCaptured(const quorvel::RecentClipboardEntry& entry);

    /// An entry is at the top now, new or used again.
    void entryPut(const quorvel::RecentClipboardEntry& entry);

    /// Pin or usage count of an entry changed in place.
    void entryChanged(const quorvel::RecentClipboardEntry& entry);

    void entryRemoved(const QString& identityKey);

    /// Emitted once after each operation that changed anything.
    void changed();

private:
    qsizetype indexOf(const QUuid& id) const;
    std::optional<RecentClipboardEntry> takeSame(const ClipboardCapture& capture);
    void applyRememberedPin(RecentClipboardEntry& entry) const;
    void setPin(const QUuid& id, bool pinned, std::optional<Date> until);
    void dropExpiredPin(RecentClipboardEntry& entry);
    void trim();
    void trimCount();
    void trimContent();
    void trimPayloads();
    bool survivesTrimming(const RecentClipboardEntry& entry) const;

    Preferences& m_preferences;
    const Clock& m_clock;
    ClipboardPins m_pins;
    QList<RecentClipboardEntry> m_recentClipboard;
};

} // namespace quorvel
