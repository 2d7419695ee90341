#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

#include <sys/types.h>

namespace quorvel {

/// What a program that has ended left behind.
struct ProgramResult {
    int exitCode = -1; ///< 128 + number of the signal that ended it; -1 when it had to be killed.
    QByteArray output;
    QByteArray errors;
};

/// A program started by a test, in a process group of its own. What it writes goes to files, so
/// that nobody ever has to wait for a reader. It does not outlive the test process.
class ChildProgram {
public:
    struct Setup {
        QString program; ///< A path, or a name to be looked up in PATH.
        QStringList arguments;
        QStringList environment; ///< "NAME=value" each; nothing is inherited.
        QByteArray input;
        QString captureBase;  ///< Where the captured output goes: this path + ".out", ".err".
        int inheritedFd = -1; ///< A descriptor that the program keeps, under its number.
    };

    explicit ChildProgram(const Setup& setup);
    ChildProgram(const ChildProgram&) = delete;
    ChildProgram& operator=(const ChildProgram&) = delete;

    /// Kills the program and everything that it started in its process group.
    ~ChildProgram();

    pid_t pid() const { return m_pid; }
    bool isRunning();

    /// Whether it has ended, and all that it started in its group as well.
    bool hasLeftNothingRunning();

    /// Absent while it runs.
    std::optional<int> exitCode();

    QByteArray output() const;
    QByteArray errors() const;

    /// Whether a whole line of this text stands in the output by now.
    bool hasPrinted(const QByteArray& line) const;

    void signal(int number);

    /// Ends the whole process group at once.
    void kill();

private:
    void reap(int flags);
    bool hasGroup() const;

    QString m_name;
    QString m_captureBase;
    pid_t m_pid = -1;
    std::optional<int> m_exitCode;
};

} // namespace quorvel
