#include "desktop/Subject.h"

namespace quorvel::bench {

double now() {
    using Milliseconds = std::chrono::duration<double, std::milli>;
    return Milliseconds(std::chrono::steady_clock::now().time_since_epoch()).count();
}

double timeUntil(const std::function<bool()>& condition) {
    constexpr double patience = 10000;
    const double start = now();
    while (!condition()) {
        if (now() - start > patience)
            return -1;
        std::this_thread::sleep_for(std::chrono::microseconds(50));
    }
    return now() - start;
}

Subject::Subject(PrivateDesktop& desktop)
    : m_desktop(desktop)
    , m_socket(desktop.runtimeFolder() + QStringLiteral("/quorvel/control")) {}

double Subject::start() {
    const double begin = now();
    m_program = m_desktop.start(QStringLiteral(QUORVEL_PROGRAM));
    timeUntil([this] { return log().contains("[Quorvel Launch] ready"); });
    return now() - begin;
}

void Subject::end() {
    ask(QStringLiteral("quit"));
    waitUntil([this] { return !m_program->isRunning(); });
    m_program.reset();
}

ControlReply Subject::ask(const QString& command, const QJsonObject& arguments) const {
    return sendControlRequest(m_socket, {command, arguments}).value_or(ControlReply{});
}

QJsonArray Subject::list(int limit) const {
    return ask(QStringLiteral("list"), {{QStringLiteral("limit"), limit}}).result.toArray();
}

QString Subject::journal() const {
    return m_desktop.dataHome() + QStringLiteral("/QuorvelMenuBar/clipboard-history.journal");
}

QString Subject::snippetsFile() const {
    return m_desktop.dataHome() + QStringLiteral("/QuorvelMenuBar/snippets.json");
}

QString Subject::preferencesFile() const {
    return m_desktop.configHome() + QStringLiteral("/QuorvelMenuBar/preferences.json");
}

} // namespace quorvel::bench
