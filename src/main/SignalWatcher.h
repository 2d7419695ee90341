#pragma once

#include <QObject>

namespace quorvel {

/// One per process. Turns the signals that ask a program to end (SIGINT, SIGTERM, SIGHUP) into a Qt
/// signal.
class SignalWatcher final : public QObject {
    Q_OBJECT

public:
    SignalWatcher();

signals:
    void endRequested();
};

} // namespace quorvel
