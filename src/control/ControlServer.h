#pragma once

#include "control/ControlProtocol.h"

#include <QHash>
#include <QLocalServer>
#include <QObject>

#include <functional>

class QLocalSocket;

namespace quorvel {

/// Answers the control tool on a local socket that only this user can open. Each command is one
/// function; an unknown or damaged request gets an error.
class ControlServer final : public QObject {
    Q_OBJECT

public:
    using Handler = std::function<ControlReply(const QJsonObject& arguments)>;

    void handle(const QString& command, const Handler& handler);

    /// Opens the socket, replacing one that a crashed instance has left (the caller holds the
    /// instance lock). Returns what went wrong; empty when it listens.
    QString listen(const QString& path);
    void close();

private:
    void accept();
    void read(QLocalSocket* socket);
    ControlReply answer(const QByteArray& line) const;

    QLocalServer m_server;
    QHash<QString, Handler> m_handlers;
};

} // namespace quorvel
