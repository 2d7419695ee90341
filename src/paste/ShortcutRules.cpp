#include "paste/ShortcutRules.h"

#include "menu/KeyNames.h"

namespace quorvel {

namespace {

/// Copying, pasting, saving and the like: what users press all day.
constexpr QStringView reservedWithControl = u"acfnopqstvwxyz";

bool isReserved(const SnippetShortcut& shortcut) {
    return shortcut.modifiers() == Modifier::control && reservedWithControl.contains(shortcut.key);
}

bool isRecentClipKey(const SnippetShortcut& shortcut, int position, const HotKeyCenter& center) {
    const Modifiers others = shortcut.modifiers() & ~recentClipModifiers;
    return (shortcut.modifiers() & recentClipModifiers) == recentClipModifiers &&
           (others & ~recentClipOptionalModifiers) == Modifiers() &&
           center.positionFor(shortcut.key.front()) == center.numberRowPosition(position);
}

} // namespace

QString objectionTo(const SnippetShortcut& shortcut, const StringTable& strings) {
    if (!shortcut.sparesTyping())
        return strings.format(
            QStringLiteral("recorder.needsModifier"), strings.text(QStringLiteral("key.control")),
            strings.text(QStringLiteral("key.alt")), strings.text(QStringLiteral("key.super")));
    if (isReserved(shortcut))
        return strings.format(QStringLiteral("recorder.reserved"),
                              keyEquivalentText({shortcut.key, shortcut.modifiers()}, strings));
    return {};
}

QString hotKeyWith(const SnippetShortcut& shortcut, HotKeyId exceptFor,
                   const Preferences& preferences, const HotKeyCenter& center,
                   const StringTable& strings) {
    const auto position = center.positionFor(shortcut.key.front());
    for (const ConfigurableHotKey& hotKey : configurableHotKeys) {
        const SnippetShortcut other = preferences.hotKey(hotKey.preference);
        if (hotKey.id != exceptFor && other.modifiers() == shortcut.modifiers() &&
            center.positionFor(other.key.front()) == position)
            return strings.text(QString::fromLatin1(hotKey.titleKey));
    }
    for (int place = 0; place < recentClipKeys.size(); ++place)
        if (isRecentClipKey(shortcut, place, center))
            return strings.format(QStringLiteral("hotKey.recentClip"), QString::number(place + 1));
    return {};
}

} // namespace quorvel
