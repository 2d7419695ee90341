#pragma once

#include "menu/MenuItem.h"

#include <QStringList>

namespace quorvel::testing {

/// One row as a short text: "-" for a separator, "# header", "! hint", "? typed text", "= text
/// box",
/// "(disabled)", "1: with the number key", "leads to a submenu >".
inline QString outlineOf(const MenuItem& item) {
    switch (item.kind) {
    case MenuItemKind::separator:
        return QStringLiteral("-");
    case MenuItemKind::header:
        return QStringLiteral("# ") + item.title;
    case MenuItemKind::hint:
        return QStringLiteral("! ") + item.title;
    case MenuItemKind::searchField:
        return QStringLiteral("? ") + item.representedObject;
    case MenuItemKind::textBox:
        return QStringLiteral("= ") + item.title;
    case MenuItemKind::ordinary:
        break;
    }
    QString text = item.title + (item.hasSubmenu() ? QStringLiteral(" >") : QString());
    if (!item.keyEquivalent.key.isEmpty())
        text.prepend(item.keyEquivalent.key + QStringLiteral(": "));
    return item.enabled ? text : u'(' + text + u')';
}

/// The rows of one level.
inline QString outlineOf(const QList<MenuItem>& items) {
    QStringList rows;
    for (const MenuItem& item : items)
        rows.append(outlineOf(item));
    return rows.join(u'|');
}

/// The rows from a header to the next one or the end of its section.
inline QString sectionOf(const QString& outline, const QString& header) {
    const qsizetype start = outline.indexOf(QStringLiteral("# ") + header);
    return start < 0 ? QString() : outline.mid(start).section(QStringLiteral("|-"), 0, 0);
}

} // namespace quorvel::testing
