#include "support/PrivateDesktop.h"

#include "support/DisplayProbe.h"

#include <QDir>
#include <QFile>
#include <QProcessEnvironment>

#include <stdexcept>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace quorvel {

namespace {

using namespace std::chrono_literals;

/// What of the surrounding session may reach the programs: nothing that points to another
/// desktop, changes the look or the language.
const QStringList inheritedVariables{
    QStringLiteral("PATH"),         QStringLiteral("LD_LIBRARY_PATH"),
    QStringLiteral("ASAN_OPTIONS"), QStringLiteral("UBSAN_OPTIONS"),
    QStringLiteral("LSAN_OPTIONS"), QStringLiteral("USER"),
};

[[noreturn]] void fail(const QString& what) {
    throw std::runtime_error(what.toStdString());
}

/// What comes through a pipe up to the end of the first line; empty when nothing comes in time.
QByteArray readLine(int fd, std::chrono::milliseconds patience) {
    const auto end = std::chrono::steady_clock::now() + patience;
    QByteArray line;
    while (!line.endsWith('\n')) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
            end - std::chrono::steady_clock::now());
        pollfd source{fd, POLLIN, 0};
        char byte = 0;
        if (left <= 0ms || ::poll(&source, 1, int(left.count())) <= 0 || ::read(fd, &byte, 1) != 1)
            return {};
        line.append(byte);
    }
    return line.trimmed();
}

} // namespace

PrivateDesktop::PrivateDesktop()
    : PrivateDesktop(Options{}) {}

PrivateDesktop::PrivateDesktop(const Options& options)
    : m_display(options.display) {
    makeFolders();
    if (m_display.isEmpty())
        startDisplay();
    setVariable(QStringLiteral("DISPLAY"), m_display);
    connectProbe();
    if (options.sessionBus || options.tray == TrayHost::xfce4Panel)
        startSessionBus();
    if (options.windowManager && !m_probe->hasWindowManager())
        startWindowManager();
    startTray(options.tray);
}

PrivateDesktop::~PrivateDesktop() {
    m_ranPrograms.clear();
    while (!m_parts.empty())
        m_parts.pop_back();
}

void PrivateDesktop::makeFolders() {
    if (!m_folder.isValid())
        fail(QStringLiteral("no temporary folder: %1").arg(m_folder.errorString()));
    const QDir folder(m_folder.path());
    for (const char* name : {"home/.local/share", "home/.config", "home/.cache", "runtime", "log"})
        folder.mkpath(QString::fromLatin1(name));
    const auto owner = QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner;
    QFile::setPermissions(runtimeFolder(), owner);

    const auto outside = QProcessEnvironment::systemEnvironment();
    for (const QString& name : inheritedVariables)
        if (outside.contains(name))
            setVariable(name, outside.value(name));
    setVariable(QStringLiteral("HOME"), home());
    setVariable(QStringLiteral("XDG_DATA_HOME"), dataHome());
    setVariable(QStringLiteral("XDG_CONFIG_HOME"), configHome());
    setVariable(QStringLiteral("XDG_CACHE_HOME"), home() + QStringLiteral("/.cache"));
    setVariable(QStringLiteral("XDG_RUNTIME_DIR"), runtimeFolder());
    setVariable(QStringLiteral("LANG"), QStringLiteral("C.UTF-8"));
    setVariable(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    setVariable(QStringLiteral("GDK_BACKEND"), QStringLiteral("x11"));
    setVariable(QStringLiteral("GSETTINGS_BACKEND"), QStringLiteral("memory"));
    setVariable(QStringLiteral("NO_AT_BRIDGE"), QStringLiteral("1"));
    // Without an address a library would look for the bus of the user's own session.
    setVariable(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"),
                QStringLiteral("unix:path=%1/no-bus").arg(runtimeFolder()));
}

void PrivateDesktop::setVariable(const QString& name, const QString& value) {
    m_environment.removeIf([prefix = name + QLatin1Char('=')](const QString& entry) {
        return entry.startsWith(prefix);
    });
    m_environment.append(name + QLatin1Char('=') + value);
}

ChildProgram::Setup PrivateDesktop::setup(const QString& program, const QStringList& arguments,
                                          const QByteArray& input) {
    const QString base = QStringLiteral("log/%1-%2")
                             .arg(++m_programs, 3, 10, QLatin1Char('0'))
                             .arg(QFileInfo(program).fileName());
    return {
        .program = program,
        .arguments = arguments,
        .environment = m_environment,
        .input = input,
        .captureBase = m_folder.filePath(base),
    };
}

void PrivateDesktop::startDisplay() {
    int pipe[2];
    if (pipe2(pipe, O_CLOEXEC) != 0)
        fail(QStringLiteral("no pipe"));
    ChildProgram::Setup server =
        setup(QStringLiteral("Xvfb"),
              {QStringLiteral("-displayfd"), QString::number(pipe[1]), QStringLiteral("-screen"),
               QStringLiteral("0"), QStringLiteral("1280x800x24"), QStringLiteral("-nolisten"),
               QStringLiteral("tcp"), QStringLiteral("-noreset")},
              {});
    server.inheritedFd = pipe[1];
    m_parts.push_back(std::make_unique<ChildProgram>(server));
    ::close(pipe[1]);
    const QByteArray number = readLine(pipe[0], usualPatience);
    ::close(pipe[0]);
    if (number.isEmpty())
        fail(QStringLiteral("the display did not start: ") +
             QString::fromLocal8Bit(m_parts.back()->errors()));
    m_display = QLatin1Char(':') + QString::fromLatin1(number);
}

void PrivateDesktop::connectProbe() {
    m_probe = std::make_unique<DisplayProbe>(m_display);
    if (!m_probe->isConnected())
        fail(QStringLiteral("the display %1 cannot be reached").arg(m_display));
}

void PrivateDesktop::startPart(const QString& program, const QStringList& arguments,
                               const char* condition, const std::function<bool()>& isReady) {
    m_parts.push_back(start(program, arguments));
    ChildProgram& part = *m_parts.back();
    const bool settled = waitUntil([&] { return isReady() || !part.isRunning(); });
    if (settled && isReady())
        return;
    fail(QStringLiteral("%1: no %2; %3")
             .arg(program, QString::fromLatin1(condition), QString::fromLocal8Bit(part.errors())));
}

void PrivateDesktop::startSessionBus() {
    const QString socket = runtimeFolder() + QStringLiteral("/bus");
    const QString address = QStringLiteral("unix:path=") + socket;
    startPart(QStringLiteral("dbus-daemon"),
              {QStringLiteral("--session"), QStringLiteral("--nofork"),
               QStringLiteral("--nopidfile"), QStringLiteral("--address=") + address},
              "session bus", [&] { return QFileInfo::exists(socket); });
    setVariable(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), address);
}

void PrivateDesktop::startWindowManager() {
    startPart(QStringLiteral("openbox"), {}, "window manager",
              [this] { return m_probe->windowManagerAnswers(); });
}

void PrivateDesktop::startTray(TrayHost host) {
    switch (host) {
    case TrayHost::none:
        break;
    case TrayHost::tint2:
        startPart(QStringLiteral("tint2"),
                  {QStringLiteral("-c"), QStringLiteral(QUORVEL_DESKTOP_FOLDER "/tint2rc")}, "tray",
                  [this] { return m_probe->hasTray(); });
        break;
    case TrayHost::xfce4Panel:
        startPart(QStringLiteral("xfce4-panel"), {QStringLiteral("--disable-wm-check")}, "tray",
                  [this] { return isOnBus(QStringLiteral("org.kde.StatusNotifierWatcher")); });
        break;
    }
}

bool PrivateDesktop::isOnBus(const QString& name) {
    const ProgramResult answer = run(
        QStringLiteral("dbus-send"),
        {QStringLiteral("--session"), QStringLiteral("--print-reply=literal"),
         QStringLiteral("--dest=org.freedesktop.DBus"), QStringLiteral("/"),
         QStringLiteral("org.freedesktop.DBus.NameHasOwner"), QStringLiteral("string:") + name});
    return answer.output.contains("true");
}

std::unique_ptr<ChildProgram> PrivateDesktop::start(const QString& program,
                                                    const QStringList& arguments,
                                                    const QByteArray& input) {
    return std::make_unique<ChildProgram>(setup(program, arguments, input));
}

ProgramResult PrivateDesktop::run(const QString& program, const QStringList& arguments,
                                  const QByteArray& input, std::chrono::milliseconds patience) {
    forgetFinishedPrograms();
    m_ranPrograms.push_back(start(program, arguments, input));
    ChildProgram& started = *m_ranPrograms.back();
    const auto end = std::chrono::steady_clock::now() + patience;
    while (started.isRunning() && std::chrono::steady_clock::now() < end)
        std::this_thread::sleep_for(1ms);
    const bool ended = !started.isRunning();
    if (!ended)
        started.kill();
    return {ended ? *started.exitCode() : -1, started.output(), started.errors()};
}

void PrivateDesktop::forgetFinishedPrograms() {
    std::erase_if(m_ranPrograms,
                  [](const auto& program) { return program->hasLeftNothingRunning(); });
}

bool PrivateDesktop::screenshot(const QString& path) {
    return run(QStringLiteral("import"), {QStringLiteral("-window"), QStringLiteral("root"), path})
               .exitCode == 0;
}

} // namespace quorvel
