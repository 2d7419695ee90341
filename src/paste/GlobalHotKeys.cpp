#include "paste/GlobalHotKeys.h"

#include "foundation/Log.h"

#include <utility>

namespace quorvel {

GlobalHotKeys::GlobalHotKeys(HotKeyCenter& center, const Preferences& preferences,
                             const PreferenceStore& store)
    : m_center(center)
    , m_preferences(preferences) {
    connect(&m_center, &HotKeyCenter::pressed, this, [this](quint32 id, Modifiers modifiersHeld) {
        emit pressed(HotKeyId(id), modifiersHeld);
    });
    connect(&m_center, &HotKeyCenter::keyboardChanged, this, &GlobalHotKeys::registerAgain);
    connect(&store, &PreferenceStore::changed, this, &GlobalHotKeys::preferenceChanged);
}

void GlobalHotKeys::setHandling(HotKeyId id, Handling handling) {
    const bool wasHandled = m_handled.removeAll(id) > 0;
    if (handling == Handling::handled)
        m_handled.append(id);
    if (wasHandled != (handling == Handling::handled))
        registerAgain();
}

void GlobalHotKeys::registerAll() {
    m_active = true;
    if (m_suspensions > 0)
        return;
    releaseKeys();
    m_states.clear();
    for (const ConfigurableHotKey& hotKey : configurableHotKeys)
        registerConfigurable(hotKey);
    for (int position = 0; position < recentClipKeys.size(); ++position)
        registerRecentClip(position);
    emit registered();
}

void GlobalHotKeys::unregisterAll() {
    releaseKeys();
    m_states.clear();
    m_active = false;
}

void GlobalHotKeys::suspend() {
    if (m_suspensions++ == 0)
        releaseKeys();
}

void GlobalHotKeys::resume() {
    Q_ASSERT(m_suspensions > 0);
    if (--m_suspensions == 0)
        registerAgain();
}

void GlobalHotKeys::registerConfigurable(const ConfigurableHotKey& hotKey) {
    HotKeyState state{hotKey.id, QString::fromLatin1(hotKey.preference.name),
                      m_preferences.hotKey(hotKey.preference)};
    reportUnusable(hotKey.preference);
    if (m_handled.contains(hotKey.id)) {
        state.result = HotKeyState::Result::noSuchKey;
        if (const auto position = m_center.positionFor(state.shortcut.key.front())) {
            state.position = *position;
            registerState(state, {});
        }
    }
    m_states.append(state);
}

void GlobalHotKeys::registerRecentClip(int position) {
    HotKeyState state{HotKeyId(quint32(HotKeyId::firstRecentClip) + quint32(position)),
                      QStringLiteral("recentClip%1").arg(position + 1),
                      {recentClipKeys.at(position), recentClipModifiers.toInt()},
                      m_center.numberRowPosition(position)};
    registerState(state, recentClipOptionalModifiers);
    m_states.append(state);
}

void GlobalHotKeys::registerState(HotKeyState& state, Modifiers optionalModifiers) {
    using Result = HotKeyState::Result;
    const auto registration = m_center.registerHotKey(state.position, state.shortcut.modifiers(),
                                                      quint32(state.id), optionalModifiers);
    state.status = registration.status;
    state.result = registration.status == 0 ? Result::bound : Result::taken;
    if (state.result == Result::bound) {
        m_hotKeyRefs.append(registration.reference);
        return;
    }
    state.takenBy = ownerOf(state);
    logLine(QStringLiteral("[Quorvel HotKey] registration failed id=%1 status=%2")
                .arg(quint32(state.id))
                .arg(registration.status));
}

/// Two characters can be on one key.
QString GlobalHotKeys::ownerOf(const HotKeyState& wanted) const {
    for (const HotKeyState& state : m_states)
        if (state.result == HotKeyState::Result::bound && state.position == wanted.position &&
            state.shortcut.modifiers() == wanted.shortcut.modifiers())
            return state.name;
    return {};
}

void GlobalHotKeys::reportUnusable(const keys::HotKey& key) {
    const QString name = QString::fromLatin1(key.name);
    if (!m_preferences.hasUnusableHotKey(key) || m_reported.contains(name))
        return;
    m_reported.insert(name);
    logLine(u"[Quorvel HotKey] %1: what is stored is no shortcut for all programs; the default "
            u"stands in"_qs.arg(name));
}

void GlobalHotKeys::registerAgain() {
    if (m_active)
        registerAll();
}

void GlobalHotKeys::releaseKeys() {
    for (const HotKeyReference reference : std::exchange(m_hotKeyRefs, {}))
        m_center.unregisterHotKey(reference);
}

void GlobalHotKeys::preferenceChanged(const QString& key) {
    for (const ConfigurableHotKey& hotKey : configurableHotKeys)
        if (key == QLatin1StringView(hotKey.preference.name)) {
            m_reported.remove(key);
            return registerAgain();
        }
}

} // namespace quorvel
