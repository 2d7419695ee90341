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
    emit registered();
}

void GlobalHotKeys::unregisterAll() {
    for (const HotKeyReference reference : std::exchange(m_hotKeyRefs, {}))
        m_center.unregisterHotKey(reference);
    m_states.clear();
    m_active = false;
}

void GlobalHotKeys::registerOne(const keys::HotKey& key, HotKeyId id) {
    using Result = HotKeyState::Result;
    HotKeyState& state = m_states.emplace_back(
        HotKeyState{id, QString::fromLatin1(key.name), m_preferences.hotKey(key)});
    const auto position = m_center.positionFor(state.shortcut.key.front());
    if (!position)
        return;
    state.position = *position;
    const auto registration =
        m_center.registerHotKey(*position, state.shortcut.modifiers(), quint32(id));
    state.status = registration.status;
    state.result = registration.status == 0 ? Result::bound : Result::taken;
    if (state.result == Result::bound)
        m_hotKeyRefs.append(registration.reference);
    else
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
