#include "UserShell.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <pwd.h>
#include <unistd.h>

namespace quorvel {

namespace {

bool isProgram(const char* path) {
    return path && path[0] == '/' && access(path, X_OK) == 0;
}

} // namespace

std::string userShell() {
    if (const char* named = std::getenv("SHELL"); isProgram(named))
        return named;
    const passwd* account = getpwuid(getuid());
    return account && isProgram(account->pw_shell) ? account->pw_shell : "/bin/sh";
}

void becomeShell(const std::string& shell, const char* command) {
    const std::string name = shell.substr(shell.rfind('/') + 1);
    if (command)
        execl(shell.c_str(), name.c_str(), "-c", command, nullptr);
    else
        execl(shell.c_str(), name.c_str(), nullptr);
    constexpr int cannotStart = 127;
    std::fprintf(stderr, "quorvel-terminal: %s: %s\n", shell.c_str(), std::strerror(errno));
    _exit(cannotStart);
}

} // namespace quorvel
