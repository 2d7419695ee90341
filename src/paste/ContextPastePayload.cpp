#include "paste/ContextPastePayload.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace quorvel {

namespace {

const QString valueKey = QStringLiteral("value");
const QString layoutKey = QStringLiteral("targetKeyboardLayoutID");

} // namespace

QString ContextPastePayload::text() const {
    QJsonObject object{{valueKey, value}};
    if (targetKeyboardLayoutID)
        object.insert(layoutKey, *targetKeyboardLayoutID);
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

std::optional<ContextPastePayload> ContextPastePayload::fromText(const QString& text) {
    const QJsonObject object = QJsonDocument::fromJson(text.toUtf8()).object();
    const QJsonValue value = object.value(valueKey);
    if (!value.isString())
        return std::nullopt;
    ContextPastePayload payload{value.toString(), std::nullopt};
    if (object.value(layoutKey).isString())
        payload.targetKeyboardLayoutID = object.value(layoutKey).toString();
    return payload;
}

} // namespace quorvel
