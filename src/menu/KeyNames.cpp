#include "menu/KeyNames.h"

#include <QStringList>

namespace quorvel {

QString keyEquivalentText(const KeyEquivalent& equivalent, const StringTable& strings) {
    if (equivalent.key.isEmpty())
        return {};
    QStringList parts;
    if (equivalent.modifiers.testFlag(Modifier::command))
        parts += strings.text(QStringLiteral("key.super"));
    if (equivalent.modifiers.testFlag(Modifier::control))
        parts += strings.text(QStringLiteral("key.control"));
    if (equivalent.modifiers.testFlag(Modifier::option))
        parts += strings.text(QStringLiteral("key.alt"));
    if (equivalent.modifiers.testFlag(Modifier::shift))
        parts += strings.text(QStringLiteral("key.shift"));
    return (parts << equivalent.key.toUpper()).join(QLatin1Char('+'));
}

} // namespace quorvel
