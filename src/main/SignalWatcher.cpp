#include "main/SignalWatcher.h"

#include <QSocketNotifier>

#include <csignal>
#include <sys/signalfd.h>
#include <unistd.h>

namespace quorvel {

namespace {

/// Blocked in every thread, so that they arrive at the descriptor only.
sigset_t blockedSignals() {
    sigset_t wanted;
    sigemptyset(&wanted);
    for (const int number : {SIGINT, SIGTERM, SIGHUP})
        sigaddset(&wanted, number);
    pthread_sigmask(SIG_BLOCK, &wanted, nullptr);
    return wanted;
}

} // namespace

SignalWatcher::SignalWatcher() {
    const sigset_t wanted = blockedSignals();
    m_file = signalfd(-1, &wanted, SFD_CLOEXEC | SFD_NONBLOCK);
    m_notifier = new QSocketNotifier(m_file, QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, [this] {
        signalfd_siginfo information{};
        while (read(m_file, &information, sizeof information) > 0)
            emit endRequested();
    });
    // A file size limit is a failed write like any other, not the end of the program.
    std::signal(SIGXFSZ, SIG_IGN);
    std::signal(SIGPIPE, SIG_IGN);
}

SignalWatcher::~SignalWatcher() { ::close(m_file); }

} // namespace quorvel
