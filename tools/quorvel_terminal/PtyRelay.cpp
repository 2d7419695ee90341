#include "PtyRelay.h"

#include "UserShell.h"

#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <sys/signalfd.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

namespace quorvel {

namespace {

sigset_t relayedSignals() {
    sigset_t set;
    sigemptyset(&set);
    for (const int number : {SIGWINCH, SIGCHLD, SIGHUP, SIGTERM})
        sigaddset(&set, number);
    return set;
}

/// The keys of the outer terminal go to the inner one untouched; undone at the end.
class RawTerminal {
public:
    RawTerminal() {
        m_isSet = tcgetattr(STDIN_FILENO, &m_before) == 0;
        termios raw = m_before;
        cfmakeraw(&raw);
        if (m_isSet)
            tcsetattr(STDIN_FILENO, TCSADRAIN, &raw);
    }
    RawTerminal(const RawTerminal&) = delete;
    RawTerminal& operator=(const RawTerminal&) = delete;
    ~RawTerminal() {
        if (m_isSet)
            tcsetattr(STDIN_FILENO, TCSADRAIN, &m_before);
    }

private:
    termios m_before{};
    bool m_isSet = false;
};

void show(std::string_view output) {
    while (!output.empty()) {
        const ssize_t count = write(STDOUT_FILENO, output.data(), output.size());
        if (count < 0 && errno != EINTR)
            return; // the window is gone; its end will be told
        if (count > 0)
            output.remove_prefix(std::size_t(count));
    }
}

int exitStatus(int status) {
    constexpr int bySignal = 128;
    return WIFEXITED(status) ? WEXITSTATUS(status) : bySignal + WTERMSIG(status);
}

} // namespace

PtyRelay::PtyRelay(const std::string& shell) {
    termios modes{};
    winsize size{};
    const bool hasModes = tcgetattr(STDIN_FILENO, &modes) == 0;
    const bool hasSize = ioctl(STDIN_FILENO, TIOCGWINSZ, &size) == 0;
    const sigset_t relayed = relayedSignals();
    sigset_t before;
    sigprocmask(SIG_BLOCK, &relayed, &before);
    m_signals = signalfd(-1, &relayed, SFD_CLOEXEC | SFD_NONBLOCK);
    m_shell = forkpty(&m_master, nullptr, hasModes ? &modes : nullptr, hasSize ? &size : nullptr);
    if (m_shell == 0) {
        sigprocmask(SIG_SETMASK, &before, nullptr);
        becomeShell(shell);
    }
    if (m_shell > 0) {
        fcntl(m_master, F_SETFD, FD_CLOEXEC);
        fcntl(m_master, F_SETFL, O_NONBLOCK);
    }
}

PtyRelay::~PtyRelay() {
    for (const int fd : {m_master, m_signals})
        if (fd >= 0)
            close(fd);
}

int PtyRelay::relay(const std::function<int(std::string_view)>& turned) {
    const RawTerminal raw;
    int timeout = turned({});
    while (!m_isOver) {
        const Ready ready = wait(timeout);
        if (ready.keys)
            readKeys();
        std::string output = ready.output ? readOutput() : std::string();
        if (ready.signals)
            takeSignals();
        if (m_isOver) // what it has written last
            output += readOutput();
        show(output);
        timeout = turned(output);
        writeToShell();
    }
    return m_status;
}

PtyRelay::Ready PtyRelay::wait(int timeout) const {
    constexpr std::size_t mostWaiting = 64 * 1024;
    const bool takesKeys = m_hasKeys && m_toShell.size() < mostWaiting;
    const short toShell = m_toShell.empty() ? 0 : POLLOUT;
    pollfd fds[]{{takesKeys ? STDIN_FILENO : -1, POLLIN, 0},
                 {m_master, short(POLLIN | toShell), 0},
                 {m_signals, POLLIN, 0}};
    if (poll(fds, std::size(fds), timeout) <= 0)
        return {};
    return {fds[0].revents != 0, (fds[1].revents & ~POLLOUT) != 0, fds[2].revents != 0};
}

void PtyRelay::readKeys() {
    char buffer[8192];
    const ssize_t count = read(STDIN_FILENO, buffer, sizeof(buffer));
    if (count > 0)
        m_toShell.append(buffer, std::size_t(count));
    else if (count == 0 || (errno != EINTR && errno != EAGAIN))
        m_hasKeys = false;
}

std::string PtyRelay::readOutput() {
    constexpr std::size_t mostAtOnce = 256 * 1024;
    std::string output;
    char buffer[8192];
    while (output.size() < mostAtOnce) {
        const ssize_t count = read(m_master, buffer, sizeof(buffer));
        if (count > 0)
            output.append(buffer, std::size_t(count));
        else if (count == 0 || errno != EINTR)
            break;
    }
    return output;
}

void PtyRelay::writeToShell() {
    while (!m_toShell.empty()) {
        const ssize_t count = write(m_master, m_toShell.data(), m_toShell.size());
        if (count > 0)
            m_toShell.erase(0, std::size_t(count));
        else if (errno != EINTR)
            return;
    }
}

void PtyRelay::takeSignals() {
    signalfd_siginfo info{};
    while (read(m_signals, &info, sizeof(info)) == ssize_t(sizeof(info))) {
        if (info.ssi_signo == SIGWINCH)
            passSize();
        else if (info.ssi_signo != SIGCHLD)
            m_isOver = true;
    }
    int status = 0;
    if (waitpid(m_shell, &status, WNOHANG | WUNTRACED) != m_shell)
        return;
    if (WIFSTOPPED(status)) { // there is nobody else who could make it go on
        kill(m_shell, SIGCONT);
        return;
    }
    m_isOver = true;
    m_status = exitStatus(status);
}

void PtyRelay::passSize() const {
    winsize size{};
    if (ioctl(STDIN_FILENO, TIOCGWINSZ, &size) == 0)
        ioctl(m_master, TIOCSWINSZ, &size);
}

} // namespace quorvel
