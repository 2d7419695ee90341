#pragma once

#include "Arguments.h"

#include "control/ControlProtocol.h"

namespace quorvel::ctl {

enum ExitCode { ok = 0, failed = 1, wrongUsage = 2 };

/// Says what is wrong on standard error; returns the code.
int complain(const QString& message, ExitCode code);

struct Invocation {
    ControlRequest request;
    QString (*rendered)(const QJsonValue& result); ///< As it goes to standard output.
};

/// What the command line asks for. On a mistake, absent, and `problem` says what is wrong. Standard
/// input is read only by commands that take it.
std::optional<Invocation> parse(const QStringList& arguments, const ReadInput& readInput,
                                QString& problem);

QString usage();

} // namespace quorvel::ctl
