#pragma once

#include <QString>

namespace quorvel {

/// Writes one diagnostic line to the log (standard error, or the journal of the session).
/// Lines begin with a bracketed tag, such as "[Quorvel HotKey] ". Never holds clipboard content.
void logLine(const QString& line);

} // namespace quorvel
