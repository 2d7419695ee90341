#include "paste/GlobalHotKeys.h"

#include "foundation/Log.h"

#include <array>

namespace quorvel {

namespace {

struct Entry {
    const keys::HotKey& key;
    HotKeyId id;
};

constexpr std::array<Entry, 1> table{{
    {keys::openMenuHotKey, HotKeyId::openMenu},
}};

} // namespace

GlobalHotKeys::GlobalHotKeys(HotKeyCenter& center, const Preferences& preferences,
                             const PreferenceStore& store)
    : m_center(center)
    , m_preferences(preferences) {
    connect(&m_center, &HotKeyCenter::pressed, this, &GlobalHotKeys::dispatch);
    connect(&m_center, &HotKeyCenter::keyboardChanged, this, [this] {
        if (m_active)
            registerAll();
    });
    connect(&store, &PreferenceStore::changed, this, &GlobalHotKeys::preferenceChanged);
}

void GlobalHotKeys::registerAll() {
    unregisterAll();
    m_active = true;
    for (const Entry& entry : table)
        registerOne(entry.key, entry.id);
}

void GlobalHotKeys::unregisterAll() {
    for (const HotKeyReference reference : std::exchange(m_hotKeyRefs, {}))
        m_center.unregisterHotKey(reference);
    m_states.clear();
    m_active = false;
}

void GlobalHotKeys::registerOne(const keys::HotKey& key, HotKeyId id) {
    using Result = HotKeyState::Result;
    const SnippetShortcut shortcut = m_preferences.hotKey(key);
    const QString name = QString::fromLatin1(key.name);
    const auto position = m_center.positionFor(shortcut.key.front());
    if (!position) {
        m_states.append({name, shortcut, Result::noSuchKey, 0});
        return;
    }
    const auto registration =
        m_center.registerHotKey(*position, shortcut.modifiers(), quint32(id));
    if (registration.status == 0) {
        m_hotKeyRefs.append(registration.reference);
        m_states.append({name, shortcut, Result::bound, 0});
        return;
    }
    m_states.append({name, shortcut, Result::taken, registration.status});
    logLine(QStringLiteral("[Quorvel HotKey] registration failed id=%1 status=%2")
                .arg(quint32(id))
                .arg(registration.status));
}

void GlobalHotKeys::preferenceChanged(const QString& key) {
    const bool isHotKey = std::any_of(table.begin(), table.end(), [&](const Entry& entry) {
        return key == QLatin1StringView(entry.key.name);
    });
    if (isHotKey && m_active)
        registerAll();
}

void GlobalHotKeys::dispatch(quint32 id) {
    for (const Entry& entry : table)
        if (quint32(entry.id) == id)
            emit pressed(entry.id);
}

} // namespace quorvel
