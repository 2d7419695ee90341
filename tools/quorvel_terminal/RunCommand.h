#pragma once

#include <string>

namespace quorvel {

/// Shows the command, has the user's shell run it, and becomes an interactive shell.
[[noreturn]] void runCommand(const std::string& command);

} // namespace quorvel
