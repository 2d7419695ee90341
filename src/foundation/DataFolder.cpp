#include "foundation/DataFolder.h"

#include "foundation/Files.h"
#include "foundation/Log.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace quorvel {

namespace {

/// Of a link only the link: what it leads to is not ours to delete.
bool removeFolder(const QString& path) {
    return QFileInfo(path).isSymLink() ? QFile::remove(path) : QDir(path).removeRecursively();
}

bool makePrivate(const QString& path) {
    return QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

void logUnless(bool done, const QString& what, const QString& path) {
    if (!done)
        logLine(QStringLiteral("[Quorvel Data] cannot %1 %2").arg(what, path));
}

} // namespace

void prepareDataFolder(const QString& current, const QString& former) {
    const bool isCurrentThere = QFileInfo(current).isDir();
    const bool isFormerThere = !former.isEmpty() && QFileInfo(former).isDir();
    // After a move that failed no folder is made: beside it the former one would be removed later.
    if (isFormerThere && !isCurrentThere)
        logUnless(QDir().rename(former, current) && makePrivate(current),
                  QStringLiteral("move to its new name"), former);
    else if (isFormerThere)
        logUnless(removeFolder(former), QStringLiteral("remove"), former);
    else
        logUnless(makePrivateFolder(current), QStringLiteral("make"), current);
}

} // namespace quorvel
