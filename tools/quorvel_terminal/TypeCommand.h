#pragma once

#include <string>

namespace quorvel {

/// Runs the user's shell and puts the command at its prompt without running it. Returns the exit
/// status of the shell. `note` is shown when the shell takes one line and the command has several.
int typeCommand(const std::string& command, const std::string& note);

} // namespace quorvel
