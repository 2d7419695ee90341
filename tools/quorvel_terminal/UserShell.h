#pragma once

#include <string>

namespace quorvel {

/// The shell of this user: $SHELL, else the one of the account, else /bin/sh.
std::string userShell();

/// Becomes the shell: interactive, or with "-c" and the command. Says so and ends the process when
/// that fails.
[[noreturn]] void becomeShell(const std::string& shell, const char* command = nullptr);

} // namespace quorvel
