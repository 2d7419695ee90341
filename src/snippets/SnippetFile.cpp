#include "snippets/SnippetFile.h"

#include "foundation/Files.h"
#include "foundation/Log.h"
#include "snippets/SnippetCoder.h"

#include <QCoreApplication>

namespace quorvel {

SnippetFile::SnippetFile(QString path, const Clock& clock, MainQueue& mainQueue,
                         BackgroundQueue& disk)
    : m_path(std::move(path))
    , m_clock(clock)
    , m_mainQueue(mainQueue)
    , m_disk(disk) {}

SnippetFile::~SnippetFile() {
    m_disk.drain();
}

StoreData SnippetFile::load() {
    const FileContent content = readWholeFile(m_path, mostBytes);
    if (content.error) {
        if (content.error->problem != FileProblem::missing)
            setAside(content.error->message);
        return {};
    }
    DecodedStoreData stored = decodedSnippetFile(content.bytes);
    if (stored.damaged) {
        setAside(QStringLiteral("damaged"));
        save(stored.data);
    }
    return std::move(stored.data);
}

bool SnippetFile::setAside(const QString& reason) {
    const QString name = setFileAside(m_path, m_clock.now());
    m_mustSetAside = name.isEmpty();
    logLine(QStringLiteral("[Quorvel Snippets] file set aside (%1) as %2")
                .arg(reason, m_mustSetAside ? QStringLiteral("nothing: cannot rename") : name));
    if (!m_mustSetAside)
        m_setAsideFiles.append(name);
    return !m_mustSetAside;
}

qint64 SnippetFile::save(const StoreData& data) {
    m_unsaved = Save{++m_lastNumber, data};
    post();
    return m_lastNumber;
}

void SnippetFile::finish() {
    m_disk.drain();
    QCoreApplication::sendPostedEvents(this);
    if (!m_unsaved)
        return;
    post();
    m_disk.drain();
    QCoreApplication::sendPostedEvents(this);
}

void SnippetFile::post() {
    m_retry.cancel();
    if (m_mustSetAside && !setAside(QStringLiteral("tried again")))
        return reportLater(m_unsaved->number,
                           QStringLiteral("a damaged file could not be set aside"));
    bool isOnItsWay = false;
    {
        const std::lock_guard lock(m_waitingMutex);
        isOnItsWay = m_waiting.has_value();
        m_waiting = m_unsaved;
    }
    if (!isOnItsWay)
        m_disk.post([this] { writeWaiting(); });
}

void SnippetFile::writeWaiting() {
    std::optional<Save> save;
    {
        const std::lock_guard lock(m_waitingMutex);
        save = std::exchange(m_waiting, std::nullopt);
    }
    reportLater(save->number, written(save->data));
}

void SnippetFile::reportLater(qint64 number, const QString& problem) {
    QMetaObject::invokeMethod(
        this, [this, number, problem] { report(number, problem); }, Qt::QueuedConnection);
}

QString SnippetFile::written(const StoreData& data) const {
    const QByteArray bytes = encodedSnippetFile(data);
    if (bytes.size() > mostBytes)
        return QStringLiteral("the snippets are too large together");
    const auto error = writeFileAtomically(m_path, bytes);
    return error ? error->message : QString();
}

void SnippetFile::report(qint64 number, const QString& problem) {
    const bool isLast = number == m_lastNumber;
    if (isLast && problem.isEmpty())
        m_unsaved.reset();
    if (isLast && !problem.isEmpty())
        m_retry = m_mainQueue.after(retryDelay, this, [this] { post(); });
    emit tried(number, problem);
    if (std::exchange(m_problem, problem) == problem)
        return;
    logLine(problem.isEmpty() ? QStringLiteral("[Quorvel Snippets] saving works again")
                              : QStringLiteral("[Quorvel Snippets] cannot save: %1").arg(problem));
    emit problemChanged();
}

} // namespace quorvel
