#include "CommandFile.h"
#include "RunCommand.h"
#include "TypeCommand.h"
#include "UserShell.h"

#include <cstdio>
#include <cstdlib>

#include <unistd.h>

namespace {

constexpr const char* usage =
    "Usage: quorvel-terminal FILE\n"
    "Quorvel starts this inside a terminal window; FILE holds a command.\n";

} // namespace

int main(int argc, char* argv[]) {
    using namespace quorvel;
    if (argc != 2 || !isatty(STDIN_FILENO)) {
        std::fputs(usage, stderr);
        return EXIT_FAILURE;
    }
    std::string problem;
    const auto file = takeCommandFile(argv[1], problem);
    if (!file) {
        // A window that closes at once would tell nothing.
        std::fprintf(stderr, "quorvel-terminal: no command in %s: %s\n", argv[1], problem.c_str());
        becomeShell(userShell());
    }
    if (file->task == CommandFile::Task::run)
        runCommand(file->command);
    return typeCommand(file->command, file->note);
}
