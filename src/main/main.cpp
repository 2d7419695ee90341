#include "app/AppDelegate.h"
#include "foundation/Log.h"
#include "main/SignalWatcher.h"
#include "main/X11Platform.h"
#include "platform/textmodule/LazyTextServices.h"
#include "ui/Application.h"

#include <cstdio>
#include <cstdlib>

namespace {

constexpr const char* usage =
    "Usage: quorvel\n"
    "Runs the clipboard manager beside the clock. Started again, it shows the menu of the one\n"
    "that runs. \"quorvelctl\" drives it from the command line.\n";

/// What has to be done before the process ends, also when the display goes and takes the
/// application object's event loop with it.
quorvel::AppDelegate* runningDelegate = nullptr;

void endRunningDelegate() {
    if (!runningDelegate)
        return;
    quorvel::logLine(QStringLiteral("[Quorvel Launch] the display is gone; saving and ending"));
    runningDelegate->applicationWillTerminate();
    // Objects that talk to the display must not be taken down by the remaining exit handlers.
    std::_Exit(EXIT_SUCCESS);
}

bool answeredBeforeStart(int argc, char* argv[]) {
    for (int i = 1; i < argc; ++i) {
        const QByteArrayView argument(argv[i]);
        if (argument == "--help" || argument == "-h")
            std::fputs(usage, stdout);
        else if (argument == "--version")
            std::puts("quorvel " QUORVEL_VERSION);
        else
            continue;
        return true;
    }
    return false;
}

int run(QApplication& application) {
    using namespace quorvel;
    const SystemClock clock;
    QtMainQueue mainQueue;
    ThreadBackgroundQueue disk;
    const StringTable strings = StringTable::forLocale(QLocale::system());
    const LazyTextServices textServices(QCoreApplication::applicationDirPath());
    X11Platform platform(clock, mainQueue, disk, strings, textServices);
    AppDelegate delegate({DataPaths::fromEnvironment(), clock, mainQueue, disk, strings,
                          QCoreApplication::applicationPid()},
                         platform.adapters());
    QObject::connect(&delegate, &AppDelegate::quitRequested, &application, &QApplication::quit);
    QObject::connect(&platform, &X11Platform::displayLost, &application, &QApplication::quit);
    SignalWatcher signalWatcher;
    QObject::connect(&signalWatcher, &SignalWatcher::endRequested, &application,
                     &QApplication::quit);
    if (!delegate.applicationDidFinishLaunching())
        return EXIT_SUCCESS;
    mainQueue.after(std::chrono::milliseconds(0), &platform, [&] { platform.warmUp(); });
    runningDelegate = &delegate;
    const int code = QApplication::exec();
    delegate.applicationWillTerminate();
    runningDelegate = nullptr;
    return code;
}

} // namespace

int main(int argc, char* argv[]) {
    if (answeredBeforeStart(argc, argv))
        return EXIT_SUCCESS;
    if (!qEnvironmentVariableIsSet("DISPLAY")) {
        std::fputs("quorvel: there is no X11 display (DISPLAY is not set)\n", stderr);
        return EXIT_FAILURE;
    }
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "xcb");
    quorvel::Application application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Quorvel"));
    QApplication::setDesktopFileName(QStringLiteral("quorvel"));
    QApplication::setQuitOnLastWindowClosed(false);
    std::atexit(endRunningDelegate);
    return run(application);
}
