#include "app/ControlledLayouts.h"

#include <QJsonArray>

namespace quorvel::controlled {

namespace {

QString nameOf(VariantLikelihood likelihood) {
    switch (likelihood) {
    case VariantLikelihood::likely:
        return QStringLiteral("likely");
    case VariantLikelihood::possible:
        return QStringLiteral("possible");
    case VariantLikelihood::unlikely:
        return QStringLiteral("unlikely");
    }
    Q_UNREACHABLE();
}

QJsonObject named(const QString& id, const QString& name) {
    return {{QStringLiteral("id"), id}, {QStringLiteral("name"), name}};
}

} // namespace

ControlReply readLayouts(const ControlledParts& parts, const QJsonObject& arguments) {
    const QString text = arguments.value(QStringLiteral("text")).toString();
    if (text.trimmed().isEmpty())
        return {{}, QStringLiteral("there is nothing to convert; give a text")};
    if (text.size() > KeyboardLayoutVariants::mostUnits)
        return {{}, QStringLiteral("the text is too long to be converted")};
    const KeyboardLayoutReading reading = parts.content.layoutVariants.reading(text);
    QJsonArray layouts;
    for (const KeyboardLayoutMap& map : parts.adapters.keyboardLayouts.maps())
        layouts.append(named(map.id, map.name));
    QJsonArray variants;
    for (const KeyboardLayoutPasteVariant& variant : reading.variants) {
        QJsonObject object = named(variant.targetLayoutID, variant.layoutName);
        object.insert(QStringLiteral("text"), variant.value);
        object.insert(QStringLiteral("likelihood"), nameOf(variant.likelihood));
        variants.append(object);
    }
    const QJsonValue source = reading.sourceLayoutID.isEmpty()
                                  ? QJsonValue()
                                  : named(reading.sourceLayoutID, reading.sourceLayoutName);
    return {QJsonObject{{QStringLiteral("active"), parts.adapters.keyboardLayouts.activeID()},
                        {QStringLiteral("layouts"), layouts},
                        {QStringLiteral("source"), source},
                        {QStringLiteral("variants"), variants}},
            {}};
}

} // namespace quorvel::controlled
