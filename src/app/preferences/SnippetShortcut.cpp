#include "app/preferences/SnippetShortcut.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace quorvel {

namespace {
const QString keyField = QStringLiteral("key");
const QString modifiersField = QStringLiteral("modifiersRawValue");
} // namespace

QByteArray SnippetShortcut::toJson() const {
    const QJsonObject object{{keyField, key}, {modifiersField, qint64(modifiersRawValue)}};
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

std::optional<SnippetShortcut> SnippetShortcut::fromJson(const QByteArray& bytes) {
    const QJsonObject object = QJsonDocument::fromJson(bytes).object();
    if (!object.value(keyField).isString() || !object.value(modifiersField).isDouble())
        return std::nullopt;
    return SnippetShortcut{object.value(keyField).toString(),
                           quint32(object.value(modifiersField).toInteger())};
}

} // namespace quorvel
