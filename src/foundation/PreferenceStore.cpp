#include "foundation/PreferenceStore.h"

#include "foundation/Log.h"

#include <QFileInfo>
#include <QJsonDocument>

namespace quorvel {

namespace {
constexpr qint64 mostBytes = 16 * 1024 * 1024;
}

PreferenceStore::PreferenceStore(QString path, const Clock& clock, BackgroundQueue& disk)
    : m_path(std::move(path))
    , m_clock(clock)
    , m_disk(disk) {}

void PreferenceStore::load() {
    const FileContent content = readWholeFile(m_path, mostBytes);
    if (content.error && content.error->problem == FileProblem::missing)
        return;
    if (content.error)
        return setAside(content.error->message);
    QJsonParseError problem;
    const QJsonDocument document = QJsonDocument::fromJson(content.bytes, &problem);
    if (!document.isObject())
        return setAside(problem.error == QJsonParseError::NoError
                            ? QStringLiteral("not a JSON object")
                            : problem.errorString());
    m_values = document.object();
}

void PreferenceStore::setAside(const QString& reason) {
    m_setAside = setFileAside(m_path, m_clock.now());
    m_mayWrite = !m_setAside.isEmpty();
    logLine(QStringLiteral("[Quorvel Preferences] file set aside (%1) as %2")
                .arg(reason, m_mayWrite ? m_setAside : QStringLiteral("nothing: cannot rename")));
    if (!m_mayWrite)
        rememberWrite(FileError{FileProblem::unwritable,
                                QStringLiteral("damaged file could not be set aside")});
}

QJsonValue PreferenceStore::value(const QString& key) const {
    return m_values.value(key);
}

void PreferenceStore::set(const QString& key, const QJsonValue& value) {
    if (m_values.value(key) == value)
        return;
    m_values.insert(key, value);
    save();
    emit changed(key);
}

void PreferenceStore::remove(const QString& key) {
    if (!m_values.contains(key))
        return;
    m_values.remove(key);
    save();
    emit changed(key);
}

void PreferenceStore::ensureFile() {
    if (!QFileInfo::exists(m_path))
        save();
    m_disk.drain();
}

QString PreferenceStore::writeProblem() const {
    const std::lock_guard lock(m_problemMutex);
    return m_problem;
}

void PreferenceStore::save() {
    if (!m_mayWrite)
        return;
    m_disk.post([this, values = m_values] {
        rememberWrite(writeFileAtomically(m_path, QJsonDocument(values).toJson()));
    });
}

void PreferenceStore::rememberWrite(const std::optional<FileError>& error) {
    const std::lock_guard lock(m_problemMutex);
    m_problem = error ? error->message : QString();
}

} // namespace quorvel
