#pragma once

#include <QObject>

class QSocketNotifier;

namespace quorvel {

/// Turns the signals that ask a program to end (SIGINT, SIGTERM, SIGHUP) into a Qt signal.
class SignalWatcher final : public QObject {
    Q_OBJECT

public:
    SignalWatcher();
    ~SignalWatcher() override;

signals:
    void endRequested();

private:
    int m_file;
    QSocketNotifier* m_notifier;
};

} // namespace quorvel
