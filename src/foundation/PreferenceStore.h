#pragma once

#include "foundation/BackgroundQueue.h"
#include "foundation/Clock.h"
#include "foundation/Files.h"

#include <QJsonObject>
#include <QObject>

#include <mutex>

namespace quorvel {

/// Key and value pairs in one JSON file. Read from memory; every change is handed to the disk at
/// once (atomically, on the background queue). A file that cannot be read or understood is set
/// aside under a dated name before anything is written, and the store starts empty.
class PreferenceStore final : public QObject {
    Q_OBJECT

public:
    PreferenceStore(QString path, const Clock& clock, BackgroundQueue& disk);

    /// Reads the file; called once, before any other use.
    void load();

    /// Undefined when the key holds nothing.
    QJsonValue value(const QString& key) const;
    void set(const QString& key, const QJsonValue& value);
    void remove(const QString& key);

    /// Makes the file when there is none yet, so that it can be opened and edited.
    void ensureFile();

    const QString& path() const { return m_path; }

    /// Dated name of a damaged file found by `load`; empty when all was well.
    const QString& setAsideFile() const { return m_setAside; }

    /// What the last write met; empty while writing works. Any thread.
    QString writeProblem() const;

signals:
    void changed(const QString& key);

private:
    void setAside(const QString& reason);
    void save();
    void rememberWrite(const std::optional<FileError>& error);

    const QString m_path;
    const Clock& m_clock;
    BackgroundQueue& m_disk;
    QJsonObject m_values;
    QString m_setAside;
    bool m_mayWrite = true;
    mutable std::mutex m_problemMutex;
    QString m_problem;
};

} // namespace quorvel
