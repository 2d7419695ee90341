#pragma once

#include <QString>

namespace quorvel {

/// Whether a text is one command line for a shell, by the commands and arguments people use.
bool looksLikeTerminalCommand(QStringView text);

} // namespace quorvel
