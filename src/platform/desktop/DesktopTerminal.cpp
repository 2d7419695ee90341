#include "platform/desktop/DesktopTerminal.h"

#include "foundation/Files.h"
#include "platform/desktop/TerminalPrograms.h"

#include <QDateTime>
#include <QDir>
#include <QProcess>
#include <QTemporaryFile>

namespace quorvel {

namespace {

const QString filePrefix = QStringLiteral("terminal-command-");

/// A terminal that has not taken its file by now does not come any more.
constexpr qint64 mostSecondsToStart = 120;

bool start(const TerminalProgram& terminal, const QStringList& inside,
           const QProcessEnvironment& environment) {
    QProcess process;
    process.setProgram(terminal.path);
    process.setArguments(terminal.arguments + inside);
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(QDir::homePath());
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    return process.startDetached();
}

} // namespace

DesktopTerminal::DesktopTerminal(Setup setup)
    : m_setup(std::move(setup)) {}

TerminalResult DesktopTerminal::run(const QString& command) {
    if (command.contains(QChar(u'\0'))) // where it stands, a program's arguments end
        return {TerminalProblem::unusableCommand, {}};
    return start("run", command);
}

TerminalResult DesktopTerminal::type(const QString& command) {
    return start("type", command);
}

TerminalResult DesktopTerminal::start(const char* task, const QString& command) const {
    const auto terminal = userTerminal(m_setup.environment);
    if (!terminal)
        return {TerminalProblem::noTerminal, {}};
    if (!QFileInfo(m_setup.helper).isExecutable())
        return {TerminalProblem::noHelper, {}};
    removeLeftFiles();
    const QString file = writtenFile(task, command);
    if (file.isEmpty())
        return {TerminalProblem::noCommandFile, m_setup.folder};
    if (quorvel::start(*terminal, {m_setup.helper, file}, m_setup.environment))
        return {};
    QFile::remove(file);
    return {TerminalProblem::notStarted, terminal->path};
}

/// Empty when it could not be written.
QString DesktopTerminal::writtenFile(const char* task, const QString& command) const {
    makePrivateFolder(m_setup.folder);
    QTemporaryFile file(QDir(m_setup.folder).filePath(filePrefix + QStringLiteral("XXXXXX")));
    const QByteArray content =
        QByteArray(task) + '\n' + m_setup.firstLineNote.toUtf8() + '\n' + command.toUtf8();
    if (!file.open() || file.write(content) != content.size() || !file.flush())
        return {};
    file.setAutoRemove(false);
    return file.fileName();
}

void DesktopTerminal::removeLeftFiles() const {
    const QDir folder(m_setup.folder);
    const QDateTime oldest = QDateTime::currentDateTime().addSecs(-mostSecondsToStart);
    for (const QFileInfo& file : folder.entryInfoList({filePrefix + u'*'}, QDir::Files))
        if (file.lastModified() < oldest)
            QFile::remove(file.filePath());
}

} // namespace quorvel
