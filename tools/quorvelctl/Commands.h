#pragma once

#include "control/ControlProtocol.h"

#include <QStringList>

#include <optional>

namespace quorvel::ctl {

enum ExitCode { ok = 0, failed = 1, wrongUsage = 2 };

/// Says what is wrong on standard error; returns the code.
int complain(const QString& message, ExitCode code);

/// How a result is written to standard output.
enum class Form { text, json };

struct Invocation {
    ControlRequest request;
    Form form = Form::text;
};

/// What the command line asks for. On a mistake, absent, and `problem` says what is wrong.
/// `copy` reads standard input to its end.
std::optional<Invocation> parse(const QStringList& arguments, QString& problem);

QString usage();

/// The result as the user wants to read it; empty for commands that only act.
QString rendered(const Invocation& invocation, const QJsonValue& result);

} // namespace quorvel::ctl
