#include "foundation/DataPaths.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include <unistd.h>

namespace quorvel {

namespace {

const QString productFolder = QStringLiteral("QuorvelMenuBar");
const QString formerProductFolder = QStringLiteral("TundleMenuBar");

bool isTestHost() {
    return qEnvironmentVariableIsSet("XCTestConfigurationFilePath") ||
           qEnvironmentVariableIsSet("XCTestBundlePath");
}

QDir userDataFolder() {
    return QDir(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation));
}

QString dataFolder() {
    if (isTestHost())
        return QDir(QDir::tempPath())
            .filePath(QStringLiteral("QuorvelTests/%1").arg(QCoreApplication::applicationPid()));
    return userDataFolder().filePath(productFolder);
}

QString formerFolder() {
    return isTestHost() ? QString() : userDataFolder().filePath(formerProductFolder);
}

/// In the runtime folder of the session; empty where there is none. Qt warns and falls back by
/// itself when the variable is missing; ours stays quiet and per user.
QString sessionFolder() {
    const QString fromEnvironment = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (!fromEnvironment.isEmpty() && QFileInfo(fromEnvironment).isDir())
        return QDir(fromEnvironment).filePath(QStringLiteral("quorvel"));
    return {};
}

QString runtimeBase() {
    const QString ofSession = sessionFolder();
    return ofSession.isEmpty()
               ? QDir(QDir::tempPath()).filePath(QStringLiteral("quorvel-%1").arg(getuid()))
               : ofSession;
}

} // namespace

DataPaths DataPaths::fromEnvironment() {
    const QDir data(dataFolder());
    const QDir config(QDir(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation))
                          .filePath(productFolder));
    const QDir runtime(runtimeBase());
    return {
        .historyFile = data.filePath(QStringLiteral("clipboard-history.json")),
        .journalFile = data.filePath(QStringLiteral("clipboard-history.journal")),
        .snippetsFile = data.filePath(QStringLiteral("snippets.json")),
        .formerDataFolder = formerFolder(),
        .preferencesFile = config.filePath(QStringLiteral("preferences.json")),
        .runtimeFolder = runtime.path(),
        .controlSocket = runtime.filePath(QStringLiteral("control")),
        .instanceLock = runtime.filePath(QStringLiteral("lock")),
        .commandFolder = sessionFolder().isEmpty() ? data.path() : sessionFolder(),
    };
}

} // namespace quorvel
