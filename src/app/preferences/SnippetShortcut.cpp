#include "app/preferences/SnippetShortcut.h"

#include <QJsonDocument>

namespace quorvel {

namespace {
const QString keyField = QStringLiteral("key");
const QString modifiersField = QStringLiteral("modifiersRawValue");
} // namespace

QByteArray SnippetShortcut::toJson() const {
    return QJsonDocument(toJsonObject()).toJson(QJsonDocument::Compact);
}

std::optional<SnippetShortcut> SnippetShortcut::fromJson(const QByteArray& bytes) {
    return fromJsonObject(QJsonDocument::fromJson(bytes).object());
}

QJsonObject SnippetShortcut::toJsonObject() const {
    return {{keyField, key}, {modifiersField, qint64(modifiersRawValue)}};
}

std::optional<SnippetShortcut> SnippetShortcut::fromJsonObject(const QJsonObject& object) {
    if (!object.value(keyField).isString() || !object.value(modifiersField).isDouble())
        return std::nullopt;
    return SnippetShortcut{object.value(keyField).toString(),
                           quint32(object.value(modifiersField).toInteger())};
}

} // namespace quorvel
