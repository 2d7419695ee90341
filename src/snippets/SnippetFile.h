#pragma once

#include "foundation/BackgroundQueue.h"
#include "foundation/Clock.h"
#include "foundation/MainQueue.h"
#include "snippets/Snippet.h"

#include <QObject>
#include <QStringList>

#include <mutex>

namespace quorvel {

/// Keeps a library in its file. Encoding and writing happen on the disk thread; a save that still
/// waits there gives way to a newer one. A file that cannot be understood is set aside before
/// anything is written; while writing fails, it is tried again.
class SnippetFile final : public QObject {
    Q_OBJECT

public:
    SnippetFile(QString path, const Clock& clock, MainQueue& mainQueue, BackgroundQueue& disk);
    ~SnippetFile() override;

    /// What could be understood; an empty library when there is no file.
    StoreData load();

    /// Has the library written at once and returns the number of this save, counted upwards.
    qint64 save(const StoreData& data);

    /// Waits for the last save, and tries it once more when it has failed before.
    void finish();

    const QString& path() const { return m_path; }

    /// Dated names of files that could not be understood.
    const QStringList& setAsideFiles() const { return m_setAsideFiles; }

    /// Why the library is not on the disk; empty while all is well.
    const QString& problem() const { return m_problem; }

    static constexpr std::chrono::milliseconds retryDelay{5000};

    /// A larger file is not ours, and none is written.
    static constexpr qint64 mostBytes = 256LL * 1024 * 1024;

signals:
    /// Every save up to this number was tried; the problem is empty when it is on the disk.
    void tried(qint64 number, const QString& problem);

    void problemChanged();

private:
    struct Save {
        qint64 number;
        StoreData data;
    };

    bool setAside(const QString& reason);
    void post();
    void writeWaiting();
    QString written(const StoreData& data) const;

    /// On the main thread; callable from any.
    void reportLater(qint64 number, const QString& problem);
    void report(qint64 number, const QString& problem);

    const QString m_path;
    const Clock& m_clock;
    MainQueue& m_mainQueue;
    BackgroundQueue& m_disk;
    QStringList m_setAsideFiles;
    bool m_mustSetAside = false; ///< The file is damaged and could not be renamed.
    QString m_problem;
    qint64 m_lastNumber = 0;
    std::optional<Save> m_unsaved; ///< The last save until it is on the disk.
    WorkItem m_retry;
    std::mutex m_waitingMutex;
    std::optional<Save> m_waiting; ///< On its way to the disk thread.
};

} // namespace quorvel
