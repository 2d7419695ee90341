#include "support/PtyProgram.h"

#include "support/WaitUntil.h"

#include <csignal>
#include <stdexcept>
#include <string>
#include <vector>

#include <fcntl.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace quorvel {

namespace {

class Pointers {
public:
    explicit Pointers(const QStringList& list) {
        for (const QString& text : list)
            m_texts.push_back(text.toStdString());
        for (std::string& text : m_texts)
            m_pointers.push_back(text.data());
        m_pointers.push_back(nullptr);
    }
    char* const* data() const { return m_pointers.data(); }

private:
    std::vector<std::string> m_texts;
    std::vector<char*> m_pointers;
};

constexpr winsize usualSize{24, 80, 0, 0};

} // namespace

PtyProgram::PtyProgram(const QStringList& command, const QStringList& environment,
                       const QString& folder) {
    const Pointers arguments(command);
    const Pointers variables(environment);
    const std::string place = folder.toStdString();
    m_pid = forkpty(&m_master, nullptr, nullptr, &usualSize);
    if (m_pid < 0)
        throw std::runtime_error("cannot start a program on a terminal");
    if (m_pid == 0) {
        constexpr int cannotStart = 127;
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        if (chdir(place.c_str()) == 0)
            execve(arguments.data()[0], arguments.data(), variables.data());
        _exit(cannotStart);
    }
    fcntl(m_master, F_SETFL, O_NONBLOCK);
    fcntl(m_master, F_SETFD, FD_CLOEXEC);
}

PtyProgram::~PtyProgram() {
    close(m_master); // tells everything on the terminal that it is gone
    if (m_exitCode)
        return;
    kill(m_pid, SIGKILL);
    waitpid(m_pid, nullptr, 0);
}

void PtyProgram::press(const QByteArray& keys) {
    if (write(m_master, keys.constData(), size_t(keys.size())) != keys.size())
        throw std::runtime_error("the terminal takes no keys");
}

void PtyProgram::resize(int rows, int columns) {
    const winsize size{static_cast<unsigned short>(rows), static_cast<unsigned short>(columns), 0,
                       0};
    ioctl(m_master, TIOCSWINSZ, &size);
}

const QByteArray& PtyProgram::output() {
    readOutput();
    return m_output;
}

bool PtyProgram::shows(const QByteArray& text) {
    return waitUntil([&] { return output().contains(text); });
}

std::optional<int> PtyProgram::exitCode() {
    waitUntil([this] {
        readOutput(); // a terminal that nobody reads holds up its programs
        int status = 0;
        if (!m_exitCode && waitpid(m_pid, &status, WNOHANG) == m_pid)
            m_exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
        return m_exitCode.has_value();
    });
    return m_exitCode;
}

void PtyProgram::readOutput() {
    char buffer[4096];
    for (ssize_t count = 0; (count = read(m_master, buffer, sizeof(buffer))) > 0;)
        m_output.append(buffer, count);
}

} // namespace quorvel
