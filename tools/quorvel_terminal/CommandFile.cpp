#include "CommandFile.h"

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quorvel {

namespace {

constexpr off_t mostBytes = 4 * 1024 * 1024;

/// Closes the descriptor at its end.
class OpenFile {
public:
    explicit OpenFile(const char* path)
        : m_fd(open(path, O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK)) {}
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    ~OpenFile() {
        if (m_fd >= 0)
            close(m_fd);
    }
    int fd() const { return m_fd; }

private:
    int m_fd;
};

/// Nobody but this user can have written it.
bool isPrivate(const struct stat& info) {
    constexpr mode_t others = S_IRWXG | S_IRWXO;
    return S_ISREG(info.st_mode) && info.st_uid == getuid() && (info.st_mode & others) == 0 &&
           info.st_nlink == 1 && info.st_size <= mostBytes;
}

bool readAll(int fd, std::string& bytes) {
    char buffer[8192];
    while (true) {
        const ssize_t count = read(fd, buffer, sizeof(buffer));
        if (count == 0)
            return true;
        if (count > 0)
            bytes.append(buffer, std::size_t(count));
        else if (errno != EINTR)
            return false;
    }
}

/// Takes the first line, without its break, off the text.
std::optional<std::string> takeLine(std::string& text) {
    const std::size_t end = text.find('\n');
    if (end == std::string::npos)
        return std::nullopt;
    std::string line = text.substr(0, end);
    text.erase(0, end + 1);
    return line;
}

std::optional<CommandFile> parsed(std::string text) {
    const auto task = takeLine(text);
    const auto note = takeLine(text);
    if (!note || (*task != "run" && *task != "type"))
        return std::nullopt;
    return CommandFile{*task == "run" ? CommandFile::Task::run : CommandFile::Task::type, *note,
                       std::move(text)};
}

} // namespace

std::optional<CommandFile> takeCommandFile(const char* path, std::string& problem) {
    const OpenFile file(path);
    struct stat info {};
    std::string text;
    if (file.fd() < 0 || fstat(file.fd(), &info) != 0) {
        problem = std::strerror(errno);
        return std::nullopt;
    }
    if (!isPrivate(info)) {
        problem = "it is not a private file";
        return std::nullopt;
    }
    const bool isRead = readAll(file.fd(), text);
    unlink(path);
    auto content = isRead ? parsed(std::move(text)) : std::nullopt;
    if (!content)
        problem = "it holds no command";
    return content;
}

} // namespace quorvel
