#include "main/SignalWatcher.h"

#include <QSocketNotifier>

#include <csignal>
#include <sys/eventfd.h>
#include <unistd.h>

namespace quorvel {

namespace {

int wakeFile = -1;

void wake(int) {
    const uint64_t one = 1;
    // A counter that is full wakes as well.
    [[maybe_unused]] const auto written = write(wakeFile, &one, sizeof one);
}

void doNothing(int) {}

void install(int number, void (*handler)(int)) {
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigaction(number, &action, nullptr);
}

} // namespace

SignalWatcher::SignalWatcher() {
    wakeFile = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    auto* notifier = new QSocketNotifier(wakeFile, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [] {
        uint64_t count = 0;
        return read(wakeFile, &count, sizeof count) > 0;
    });
    connect(notifier, &QSocketNotifier::activated, this, &SignalWatcher::endRequested);
    for (const int number : {SIGINT, SIGTERM, SIGHUP})
        install(number, wake);
    // A file size limit and a peer that hangs up are failed writes, not the end of the program.
    // Handled instead of ignored, since programs that we start would inherit that.
    install(SIGXFSZ, doNothing);
    install(SIGPIPE, doNothing);
}

} // namespace quorvel
