#pragma once

#include "support/PrivateDesktop.h"

#include "control/ControlClient.h"

#include <QJsonArray>

namespace quorvel::bench {

/// The program under measurement on a private desktop.
class Subject {
public:
    explicit Subject(PrivateDesktop& desktop);

    /// Starts it and returns the milliseconds until it can take a copy.
    double start();
    void end();

    pid_t pid() const { return m_program->pid(); }
    QByteArray log() const { return m_program->errors(); }

    ControlReply ask(const QString& command, const QJsonObject& arguments = {}) const;
    QJsonArray list(int limit = 0) const;

    QString journal() const;
    QString preferencesFile() const;
    QString snippetsFile() const;

private:
    PrivateDesktop& m_desktop;
    QString m_socket;
    std::unique_ptr<ChildProgram> m_program;
};

/// Milliseconds on a clock that only grows.
double now();

/// Busily looks until the condition holds and returns the milliseconds that it took; negative when
/// it did not within ten seconds.
double timeUntil(const std::function<bool()>& condition);

} // namespace quorvel::bench
