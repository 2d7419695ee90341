#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QString>

#include <optional>

namespace quorvel {

/// One request of the control tool: a line of JSON on the local socket.
struct ControlRequest {
    QString command;
    QJsonObject arguments;

    QByteArray toLine() const;
    static std::optional<ControlRequest> fromLine(const QByteArray& line);
};

/// The answer, a line of JSON as well: a result, or a message for the user when it failed.
struct ControlReply {
    QJsonValue result;
    QString error; ///< Empty when it went well.

    bool isOk() const { return error.isEmpty(); }
    QByteArray toLine() const;
    static std::optional<ControlReply> fromLine(const QByteArray& line);
};

/// Longest line that is read from a peer, in bytes.
inline constexpr qint64 mostControlBytes = 256 * 1024 * 1024;

} // namespace quorvel
