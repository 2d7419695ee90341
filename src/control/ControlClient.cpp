#include "control/ControlClient.h"

#include <QLocalSocket>

namespace quorvel {

namespace {
constexpr int connectPatience = 2000; // milliseconds
constexpr int answerPatience = 20000;
} // namespace

std::optional<ControlReply> sendControlRequest(const QString& socketPath,
                                               const ControlRequest& request) {
    QLocalSocket socket;
    socket.connectToServer(socketPath);
    if (!socket.waitForConnected(connectPatience))
        return std::nullopt;
    socket.write(request.toLine());
    while (socket.bytesToWrite() > 0)
        if (!socket.waitForBytesWritten(answerPatience))
            break;
    while (!socket.canReadLine())
        if (!socket.waitForReadyRead(answerPatience))
            break;
    const auto reply = ControlReply::fromLine(socket.readLine());
    return reply ? reply : ControlReply{{}, QStringLiteral("the running instance gave no answer")};
}

} // namespace quorvel
