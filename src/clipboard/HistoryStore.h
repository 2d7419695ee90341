#pragma once

#include "clipboard/ClipboardHistory.h"
#include "foundation/BackgroundQueue.h"
#include "foundation/Files.h"
#include "foundation/MainQueue.h"

#include <QObject>
#include <QStringList>

#include <functional>
#include <memory>
#include <vector>

namespace quorvel {

/// Keeps the history on the disk: each change goes to the journal at once, and a moment after the
/// last of a burst the whole file is written and the journal emptied. A file that cannot be read
/// is set aside before anything is written; while writing fails, it is tried again.
class HistoryStore final : public QObject {
    Q_OBJECT

public:
    HistoryStore(QString historyFile, QString journalFile, ClipboardHistory& history,
                 const Clock& clock, MainQueue& mainQueue, BackgroundQueue& disk);
    ~HistoryStore() override;

    /// Fills the history from file and journal; called once, before any capture.
    void load();

    /// Writes the whole file a moment from now; a later call replaces an earlier one.
    void scheduleWrite();

    /// Writes the whole file at once and waits for it.
    void writeNow();

    /// Dated names of files that could not be understood.
    const QStringList& setAsideFiles() const { return m_setAsideFiles; }

    /// Why changes are not on the disk; empty while all is well.
    const QString& saveProblem() const { return m_saveProblem; }

    static constexpr std::chrono::milliseconds writeDelay{350};
    static constexpr std::chrono::milliseconds retryDelay{5000};

    /// A larger file is not ours.
    static constexpr qint64 mostBytes = 400LL * 1024 * 1024;

signals:
    void saveProblemChanged();

private:
    /// Made on the disk thread: encoding a picture takes a while.
    using Record = std::function<QByteArray()>;
    struct Batch {
        std::vector<Record> records;
    };

    QByteArray readOrSetAside(const QString& path);
    void setAside(const QString& path, const QString& reason);
    bool retrySettingAside();
    void append(Record record);
    void postJournal(const std::shared_ptr<Batch>& batch);
    void postWrite();
    void report(const QString& problem);

    /// Runs on the main thread with what the disk thread found.
    template <typename Work>
    void backOnMain(Work work);

    const QString m_historyFile;
    const QString m_journalFile;
    ClipboardHistory& m_history;
    const Clock& m_clock;
    MainQueue& m_mainQueue;
    BackgroundQueue& m_disk;
    WorkItem m_pendingClipboardPersistWorkItem;
    WorkItem m_retry;
    QStringList m_setAsideFiles;
    QStringList m_notSetAside; ///< Damaged files that could not be renamed: never written over.
    QString m_saveProblem;
    std::shared_ptr<Batch> m_batch; ///< Records on their way to the disk thread.
    std::mutex m_batchMutex;
};

} // namespace quorvel
