#pragma once

#include <QProcessEnvironment>
#include <QStringList>

#include <optional>

namespace quorvel {

/// A terminal program, and what it wants before the program to run inside it.
struct TerminalProgram {
    QString path;
    QStringList arguments;

    bool operator==(const TerminalProgram&) const = default;
};

/// The user's terminal program: $TERMINAL, which may have arguments of its own; the one that the
/// desktop or the system is set to; or else one of those that are known. Looks into $PATH.
std::optional<TerminalProgram> userTerminal(const QProcessEnvironment& environment);

} // namespace quorvel
