#pragma once

#include <optional>
#include <string>

namespace quorvel {

/// What is to be done in the terminal.
struct CommandFile {
    enum class Task { run, type };

    Task task = Task::type;
    std::string note; ///< Shown when only the first line of the command could be typed.
    std::string command;
};

/// Reads the file and deletes it: three parts behind each other, "run" or "type", the note, each
/// with a line break behind it, and the command. Nothing, with the reason in `problem`, for a file
/// that others could have written or that has another form.
std::optional<CommandFile> takeCommandFile(const char* path, std::string& problem);

} // namespace quorvel
