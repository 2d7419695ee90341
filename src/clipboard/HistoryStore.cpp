#include "clipboard/HistoryStore.h"

#include "clipboard/EntryCoder.h"
#include "clipboard/HistoryJournal.h"
#include "foundation/Log.h"

namespace quorvel {

HistoryStore::HistoryStore(QString historyFile, QString journalFile, ClipboardHistory& history,
                           const Clock& clock, MainQueue& mainQueue, BackgroundQueue& disk)
    : m_historyFile(std::move(historyFile))
    , m_journalFile(std::move(journalFile))
    , m_history(history)
    , m_clock(clock)
    , m_mainQueue(mainQueue)
    , m_disk(disk) {
    connect(&m_history, &ClipboardHistory::entryPut, this, [this](const auto& entry) {
        append([entry] { return HistoryJournal::putRecord(entry); });
    });
    connect(&m_history, &ClipboardHistory::entryChanged, this, [this](const auto& entry) {
        append([entry] { return HistoryJournal::changeRecord(entry); });
    });
    connect(&m_history, &ClipboardHistory::entryRemoved, this, [this](const QString& key) {
        append([key] { return HistoryJournal::removeRecord(key); });
    });
    connect(&m_history, &ClipboardHistory::changed, this, &HistoryStore::scheduleWrite);
}

HistoryStore::~HistoryStore() {
    m_disk.drain();
}

void HistoryStore::load() {
    const QByteArray bytes = readOrSetAside(m_historyFile);
    DecodedHistory stored;
    if (!bytes.isEmpty())
        stored = decodedHistory(bytes);
    if (stored.damaged)
        setAside(m_historyFile, QStringLiteral("damaged"));
    const QByteArray journal = readOrSetAside(m_journalFile);
    HistoryJournal::replay(journal, stored.entries);
    m_history.restore(std::move(stored.entries));
    if (!journal.isEmpty() || stored.damaged)
        scheduleWrite();
}

QByteArray HistoryStore::readOrSetAside(const QString& path) {
    FileContent content = readWholeFile(path, mostBytes);
    if (content.error && content.error->problem != FileProblem::missing)
        setAside(path, content.error->message);
    else if (!content.error && content.bytes.isEmpty() && path == m_historyFile)
        setAside(path, QStringLiteral("empty"));
    return std::move(content.bytes);
}

void HistoryStore::setAside(const QString& path, const QString& reason) {
    const QString name = setFileAside(path, m_clock.now());
    logLine(QStringLiteral("[Quorvel History] file set aside (%1) as %2")
                .arg(reason, name.isEmpty() ? QStringLiteral("nothing: cannot rename") : name));
    if (name.isEmpty())
        m_notSetAside.append(path);
    else
        m_setAsideFiles.append(name);
}

bool HistoryStore::retrySettingAside() {
    for (const QString& path : std::exchange(m_notSetAside, {}))
        setAside(path, QStringLiteral("tried again"));
    return m_notSetAside.isEmpty();
}

void HistoryStore::append(Record record) {
    if (m_notSetAside.contains(m_journalFile))
        return;
    std::shared_ptr<Batch> fresh;
    {
        const std::lock_guard lock(m_batchMutex);
        if (!m_batch)
            m_batch = fresh = std::make_shared<Batch>();
        m_batch->records.push_back(std::move(record));
    }
    if (fresh)
        postJournal(fresh);
}

/// One write and one sync for all records that come in while the disk is busy.
void HistoryStore::postJournal(const std::shared_ptr<Batch>& batch) {
    m_disk.post([this, batch] {
        {
            const std::lock_guard lock(m_batchMutex);
            if (m_batch == batch)
                m_batch.reset();
        }
        QByteArray bytes;
        for (const Record& record : batch->records)
            bytes += record();
        if (const auto error = HistoryJournal::append(m_journalFile, bytes))
            backOnMain([this, message = error->message] { report(message); });
    });
}

void HistoryStore::scheduleWrite() {
    m_pendingClipboardPersistWorkItem.cancel();
    m_pendingClipboardPersistWorkItem =
        m_mainQueue.after(writeDelay, this, [this] { postWrite(); });
}

void HistoryStore::writeNow() {
    postWrite();
    m_disk.drain();
}

void HistoryStore::postWrite() {
    m_pendingClipboardPersistWorkItem.cancel();
    m_retry.cancel();
    if (!retrySettingAside())
        return report(QStringLiteral("a damaged file could not be set aside"));
    {
        // Records from now on belong behind this write: it empties the journal.
        const std::lock_guard lock(m_batchMutex);
        m_batch.reset();
    }
    m_disk.post([this, entries = m_history.recentClipboard()] {
        const auto error = writeFileAtomically(m_historyFile, encodedHistory(entries));
        if (!error)
            HistoryJournal::empty(m_journalFile);
        backOnMain([this, message = error ? error->message : QString()] { report(message); });
    });
}

void HistoryStore::report(const QString& problem) {
    if (!problem.isEmpty() && !m_retry.isPending())
        m_retry = m_mainQueue.after(retryDelay, this, [this] { postWrite(); });
    if (m_saveProblem == problem)
        return;
    m_saveProblem = problem;
    logLine(problem.isEmpty() ? QStringLiteral("[Quorvel History] saving works again")
                              : QStringLiteral("[Quorvel History] cannot save: %1").arg(problem));
    emit saveProblemChanged();
}

template <typename Work>
void HistoryStore::backOnMain(Work work) {
    QMetaObject::invokeMethod(this, std::move(work), Qt::QueuedConnection);
}

} // namespace quorvel
