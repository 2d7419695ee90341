#include "RunCommand.h"

#include "TypedText.h"
#include "UserShell.h"

#include <cerrno>
#include <csignal>
#include <cstdio>

#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

namespace quorvel {

namespace {

/// The keys that end the command must not end what waits for it.
void setKeySignals(void (*handler)(int)) {
    for (const int number : {SIGINT, SIGQUIT})
        std::signal(number, handler);
}

void waitFor(pid_t child) {
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
}

} // namespace

void runCommand(const std::string& command) {
    const std::string shell = userShell();
    std::printf("$ %s\n", shownForm(command).c_str());
    std::fflush(stdout);
    termios modes{};
    const bool hasModes = tcgetattr(STDIN_FILENO, &modes) == 0;
    setKeySignals(SIG_IGN);
    const pid_t child = fork();
    if (child == 0) {
        setKeySignals(SIG_DFL);
        becomeShell(shell, command.c_str());
    }
    if (child < 0)
        std::perror("quorvel-terminal");
    else
        waitFor(child);
    if (hasModes) // what the command may have left behind
        tcsetattr(STDIN_FILENO, TCSADRAIN, &modes);
    setKeySignals(SIG_DFL);
    becomeShell(shell);
}

} // namespace quorvel
