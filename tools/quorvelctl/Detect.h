#pragma once

#include <QStringList>

namespace quorvel::ctl {

/// Answers each line of standard input until its end; returns the exit code. A line that is no
/// JSON string gets an object with "error", and the next one its turn.
int detect(const QStringList& arguments);

} // namespace quorvel::ctl
