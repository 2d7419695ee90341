#include "foundation/Files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace quorvel {

namespace {

constexpr auto ownerOnlyFile = QFile::ReadOwner | QFile::WriteOwner;
constexpr auto ownerOnlyFolder = ownerOnlyFile | QFile::ExeOwner;

FileError unwritable(const QSaveFile& file) {
    return {FileProblem::unwritable, file.errorString()};
}

QString datedName(const QFileInfo& file, Date now, int attempt) {
    const QString stamp = now.toDateTime().toString(QStringLiteral("yyyyMMdd'T'HHmmss"));
    const QString again = attempt == 0 ? QString() : QStringLiteral("-%1").arg(attempt);
    return file.dir().filePath(QStringLiteral("%1.set-aside-%2%3.%4")
                                   .arg(file.completeBaseName(), stamp, again, file.suffix()));
}

} // namespace

FileContent readWholeFile(const QString& path, qint64 mostBytes) {
    const QFileInfo info(path);
    if (!info.exists() && !info.isSymLink())
        return {{}, FileError{FileProblem::missing, QStringLiteral("no such file")}};
    if (!info.isFile())
        return {{}, FileError{FileProblem::unreadable, QStringLiteral("not a regular file")}};
    if (info.size() > mostBytes)
        return {{}, FileError{FileProblem::tooLarge, QStringLiteral("too large")}};
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {{}, FileError{FileProblem::unreadable, file.errorString()}};
    QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return {{}, FileError{FileProblem::unreadable, file.errorString()}};
    return {std::move(bytes), std::nullopt};
}

std::optional<FileError> writeFileAtomically(const QString& path, const QByteArray& bytes) {
    makePrivateFolder(QFileInfo(path).path());
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return unwritable(file);
    file.setPermissions(ownerOnlyFile);
    if (file.write(bytes) != bytes.size() || !file.commit())
        return unwritable(file);
    return std::nullopt;
}

bool makePrivateFolder(const QString& path) {
    if (QFileInfo(path).isDir())
        return true;
    return QDir().mkpath(path) && QFile::setPermissions(path, ownerOnlyFolder);
}

QString setFileAside(const QString& path, Date now) {
    const QFileInfo file(path);
    constexpr int mostAttempts = 100;
    for (int attempt = 0; attempt < mostAttempts; ++attempt) {
        const QString target = datedName(file, now, attempt);
        if (QFileInfo::exists(target))
            continue;
        return QDir().rename(path, target) ? target : QString();
    }
    return {};
}

} // namespace quorvel
