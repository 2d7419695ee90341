#include "menu/KeyNames.h"

#include <QStringList>

namespace quorvel {

namespace {

QString keyText(const QString& key, const StringTable& strings) {
    if (key == u" ")
        return strings.text(QStringLiteral("key.space"));
    const QString upper = key.toUpper();
    return upper.size() == key.size() ? upper : key; // A sharp s would become two letters.
}

} // namespace

QStringList keyEquivalentParts(const KeyEquivalent& equivalent, const StringTable& strings) {
    QStringList parts;
    if (equivalent.modifiers.testFlag(Modifier::command))
        parts += strings.text(QStringLiteral("key.super"));
    if (equivalent.modifiers.testFlag(Modifier::control))
        parts += strings.text(QStringLiteral("key.control"));
    if (equivalent.modifiers.testFlag(Modifier::option))
        parts += strings.text(QStringLiteral("key.alt"));
    if (equivalent.modifiers.testFlag(Modifier::shift))
        parts += strings.text(QStringLiteral("key.shift"));
    if (!equivalent.key.isEmpty())
        parts += keyText(equivalent.key, strings);
    return parts;
}

QString keyEquivalentText(const KeyEquivalent& equivalent, const StringTable& strings) {
    if (equivalent.key.isEmpty())
        return {};
    return keyEquivalentParts(equivalent, strings).join(QLatin1Char('+'));
}

} // namespace quorvel
