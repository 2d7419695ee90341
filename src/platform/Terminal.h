#pragma once

#include <QString>

namespace quorvel {

enum class TerminalProblem {
    none,
    unusableCommand, ///< It holds a character that no command can have.
    noTerminal,      ///< No terminal program is installed.
    noHelper,        ///< The program of ours that runs inside the terminal is missing.
    noCommandFile,   ///< The command could not be handed over; `detail` is the folder.
    notStarted,      ///< `detail` is the terminal program that did not start.
};

struct TerminalResult {
    TerminalProblem problem = TerminalProblem::none;
    QString detail;

    bool isOk() const { return problem == TerminalProblem::none; }
};

/// New windows of the user's terminal program. A command is handed over as it is: nothing in it can
/// do anything before the user's shell reads it.
class Terminal {
public:
    virtual ~Terminal() = default;

    /// Runs the command at once, and leaves a shell open.
    virtual TerminalResult run(const QString& command) = 0;

    /// Puts the command at the prompt of a shell, for the user to look at and to run.
    virtual TerminalResult type(const QString& command) = 0;
};

} // namespace quorvel
