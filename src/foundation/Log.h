#pragma once

#include <QString>

namespace quorvel {

/// Writes one diagnostic line to the log (standard error, or the journal of the session).
/// Lines begin with a bracketed tag, such as "[Quorvel HotKey] ". Never holds clipboard content.
void logLine(const QString& line);

/// The same for what only matters to whoever looks for a fault; not written unless it is asked for
/// with QT_LOGGING_RULES="quorvel.detail=true".
void logDetail(const QString& line);

} // namespace quorvel
