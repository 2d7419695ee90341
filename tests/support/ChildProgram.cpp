#include "support/ChildProgram.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <stdexcept>
#include <vector>

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace quorvel {

namespace {

/// Programs that put themselves in the background come back to us as children when their parent
/// ends, so that they can be found and ended too.
void adoptOrphans() {
    static const int done = prctl(PR_SET_CHILD_SUBREAPER, 1);
    if (done != 0)
        throw std::runtime_error("cannot become the reaper of orphaned children");
}

std::string pathOf(const QString& program) {
    const QString path = program.contains(QLatin1Char('/'))
                             ? QFileInfo(program).absoluteFilePath()
                             : QStandardPaths::findExecutable(program);
    if (path.isEmpty() || !QFileInfo(path).isExecutable())
        throw std::runtime_error("no such program: " + program.toStdString());
    return path.toStdString();
}

std::vector<std::string> asStrings(const QStringList& list) {
    std::vector<std::string> strings;
    for (const QString& text : list)
        strings.push_back(text.toStdString());
    return strings;
}

std::vector<char*> asPointers(std::vector<std::string>& strings) {
    std::vector<char*> pointers;
    for (std::string& text : strings)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeInput(const QString& path, const QByteArray& input) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(input) != input.size())
        throw std::runtime_error("cannot write the input of a program");
}

/// Everything between fork and exec; only calls that are safe there.
[[noreturn]] void becomeProgram(const char* path, char* const* arguments, char* const* environment,
                                const char* input, const char* output, const char* errors,
                                int inheritedFd, pid_t parent) {
    constexpr int cannotStart = 127;
    setsid();
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent)
        _exit(cannotStart);
    const int in = open(input, O_RDONLY | O_CLOEXEC);
    const int out = open(output, O_WRONLY | O_CREAT | O_TRUNC | O_APPEND | O_CLOEXEC, 0600);
    const int err = open(errors, O_WRONLY | O_CREAT | O_TRUNC | O_APPEND | O_CLOEXEC, 0600);
    if (dup2(in, STDIN_FILENO) < 0 || dup2(out, STDOUT_FILENO) < 0 || dup2(err, STDERR_FILENO) < 0)
        _exit(cannotStart);
    if (inheritedFd >= 0)
        fcntl(inheritedFd, F_SETFD, 0);
    execve(path, arguments, environment);
    _exit(cannotStart);
}

} // namespace

ChildProgram::ChildProgram(const Setup& setup)
    : m_name(setup.program)
    , m_captureBase(setup.captureBase) {
    adoptOrphans();
    const std::string path = pathOf(setup.program);
    std::vector<std::string> arguments = asStrings(QStringList(setup.program) + setup.arguments);
    std::vector<std::string> environment = asStrings(setup.environment);
    const std::vector<char*> argumentPointers = asPointers(arguments);
    const std::vector<char*> environmentPointers = asPointers(environment);
    writeInput(m_captureBase + QStringLiteral(".in"), setup.input);
    const std::string input = (m_captureBase + QStringLiteral(".in")).toStdString();
    const std::string output = (m_captureBase + QStringLiteral(".out")).toStdString();
    const std::string errors = (m_captureBase + QStringLiteral(".err")).toStdString();
    const pid_t parent = getpid();
    m_pid = fork();
    if (m_pid < 0)
        throw std::runtime_error("cannot start another process");
    if (m_pid == 0)
        becomeProgram(path.c_str(), argumentPointers.data(), environmentPointers.data(),
                      input.c_str(), output.c_str(), errors.c_str(), setup.inheritedFd, parent);
}

ChildProgram::~ChildProgram() {
    kill();
}

void ChildProgram::reap(int flags) {
    int status = 0;
    if (m_exitCode || waitpid(m_pid, &status, flags) != m_pid)
        return;
    m_exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

bool ChildProgram::isRunning() {
    reap(WNOHANG);
    return !m_exitCode;
}

std::optional<int> ChildProgram::exitCode() {
    reap(WNOHANG);
    return m_exitCode;
}

QByteArray ChildProgram::output() const {
    return contentOf(m_captureBase + QStringLiteral(".out"));
}

QByteArray ChildProgram::errors() const {
    return contentOf(m_captureBase + QStringLiteral(".err"));
}

bool ChildProgram::hasPrinted(const QByteArray& line) const {
    return ('\n' + output()).contains('\n' + line + '\n');
}

void ChildProgram::signal(int number) {
    if (isRunning())
        ::kill(m_pid, number);
}

bool ChildProgram::hasLeftNothingRunning() {
    return !isRunning() && !hasGroup();
}

/// The group's number stays ours for as long as one of its processes is our child.
bool ChildProgram::hasGroup() const {
    while (waitpid(-m_pid, nullptr, WNOHANG) > 0) {
    }
    siginfo_t info{};
    return waitid(P_PGID, id_t(m_pid), &info, WEXITED | WNOHANG | WNOWAIT) == 0;
}

void ChildProgram::kill() {
    if (isRunning()) {
        // It may not have made its group yet.
        ::kill(m_pid, SIGKILL);
        reap(0);
    }
    while (hasGroup()) {
        ::kill(-m_pid, SIGKILL);
        while (waitpid(-m_pid, nullptr, 0) > 0) {
        }
    }
}

} // namespace quorvel
