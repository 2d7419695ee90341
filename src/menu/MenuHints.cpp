#include "menu/MenuHints.h"

#include "menu/KeyNames.h"

#include <array>

namespace quorvel {

namespace {

/// A text that may name the keys of a shortcut.
struct Hint {
    const char* key;
    const keys::HotKey* shortcut = nullptr;
};

constexpr std::array hints{
    Hint{"hint.hotkey.openMenu", &keys::openMenuHotKey},
    Hint{"hint.hotkey.openTranslate", &keys::openTranslateHotKey},
    Hint{"hint.hotkey.appendCopy", &keys::appendSelectionHotKey},
    Hint{"hint.modifier.plainText"},
    Hint{"hint.smartFolders"},
    Hint{"hint.recentShortcuts"},
    Hint{"hint.menuSearch"},
    Hint{"hint.disableHints"},
};

int increment(Preferences& preferences, const keys::Record& counter) {
    const int count = preferences.record(counter).toInt() + 1;
    preferences.set(counter, count);
    return count;
}

} // namespace

MenuHints::MenuHints(Preferences& preferences, const StringTable& strings, Random random)
    : m_preferences(preferences)
    , m_strings(strings)
    , m_random(std::move(random)) {}

QString MenuHints::choose() {
    if (!m_preferences.isOn(keys::hintsEnabled))
        return {};
    const int uses = m_preferences.record(keys::altModeUsageCount).toInt();
    const int openings = increment(m_preferences, keys::altHintMenuOpenCount);
    if (uses < optionModeIsKnownAfter && openings % 2 == 0)
        return m_strings.text(QStringLiteral("hint.modifier.keepClipboard"));
    return draw();
}

QString MenuHints::draw() const {
    if (!m_preferences.isOn(keys::hintsEnabled))
        return {};
    const Hint& hint = hints[std::size_t(m_random(int(hints.size())))];
    const QString text = m_strings.text(QString::fromLatin1(hint.key));
    if (!hint.shortcut)
        return text;
    const SnippetShortcut shortcut = m_preferences.hotKey(*hint.shortcut);
    return text.arg(keyEquivalentText({shortcut.key, shortcut.modifiers()}, m_strings));
}

void MenuHints::countOptionModeUse() {
    increment(m_preferences, keys::altModeUsageCount);
}

void MenuHints::switchOff() {
    m_preferences.set(keys::hintsEnabled, false);
}

} // namespace quorvel
