#include "control/ControlServer.h"

#include <QLocalSocket>

namespace quorvel {

void ControlServer::handle(const QString& command, const Handler& handler) {
    m_handlers.insert(command, handler);
}

QString ControlServer::listen(const QString& path) {
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&m_server, &QLocalServer::newConnection, this, &ControlServer::accept,
            Qt::UniqueConnection);
    QLocalServer::removeServer(path);
    return m_server.listen(path) ? QString() : m_server.errorString();
}

void ControlServer::close() {
    m_server.close();
}

void ControlServer::accept() {
    while (QLocalSocket* socket = m_server.nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] { read(socket); });
    }
}

void ControlServer::read(QLocalSocket* socket) {
    if (!socket->canReadLine()) {
        if (socket->bytesAvailable() > mostControlBytes)
            socket->abort();
        return;
    }
    socket->write(answer(socket->readLine()).toLine());
    socket->disconnectFromServer();
}

ControlReply ControlServer::answer(const QByteArray& line) const {
    const auto request = ControlRequest::fromLine(line);
    if (!request)
        return {{}, QStringLiteral("the request could not be understood")};
    const auto handler = m_handlers.constFind(request->command);
    if (handler == m_handlers.cend())
        return {{}, QStringLiteral("unknown command \"%1\"").arg(request->command)};
    return (*handler)(request->arguments);
}

} // namespace quorvel
