#include "control/ControlProtocol.h"

#include <QJsonDocument>

namespace quorvel {

namespace {

const QString commandField = QStringLiteral("command");
const QString argumentsField = QStringLiteral("arguments");
const QString resultField = QStringLiteral("result");
const QString errorField = QStringLiteral("error");

QByteArray line(const QJsonObject& object) {
    return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
}

std::optional<QJsonObject> object(const QByteArray& line) {
    const QJsonDocument document = QJsonDocument::fromJson(line);
    return document.isObject() ? std::optional(document.object()) : std::nullopt;
}

} // namespace

QByteArray ControlRequest::toLine() const {
    return line({{commandField, command}, {argumentsField, arguments}});
}

std::optional<ControlRequest> ControlRequest::fromLine(const QByteArray& bytes) {
    const auto fields = object(bytes);
    if (!fields || !fields->value(commandField).isString())
        return std::nullopt;
    return ControlRequest{fields->value(commandField).toString(),
                          fields->value(argumentsField).toObject()};
}

QByteArray ControlReply::toLine() const {
    return isOk() ? line({{resultField, result}}) : line({{errorField, error}});
}

std::optional<ControlReply> ControlReply::fromLine(const QByteArray& bytes) {
    const auto fields = object(bytes);
    if (!fields || (!fields->contains(resultField) && !fields->contains(errorField)))
        return std::nullopt;
    return ControlReply{fields->value(resultField), fields->value(errorField).toString()};
}

} // namespace quorvel
