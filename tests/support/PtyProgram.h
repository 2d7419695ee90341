#pragma once

#include <QByteArray>
#include <QStringList>

#include <optional>

#include <sys/types.h>

namespace quorvel {

/// A program started by a test on a terminal of its own, whose user the test is. Ends with this
/// object.
class PtyProgram {
public:
    /// `environment` as "NAME=value", nothing is inherited; starts in `folder`.
    PtyProgram(const QStringList& command, const QStringList& environment, const QString& folder);
    PtyProgram(const PtyProgram&) = delete;
    PtyProgram& operator=(const PtyProgram&) = delete;
    ~PtyProgram();

    void press(const QByteArray& keys);
    void resize(int rows, int columns);

    /// What was written so far.
    const QByteArray& output();

    /// Waits for a text in the output; false when it does not come.
    bool shows(const QByteArray& text);

    /// Waits for the end; nothing when it does not come.
    std::optional<int> exitCode();

private:
    void readOutput();

    pid_t m_pid = -1;
    int m_master = -1;
    QByteArray m_output;
    std::optional<int> m_exitCode;
};

} // namespace quorvel
