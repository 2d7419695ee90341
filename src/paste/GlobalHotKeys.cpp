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
    connect(&m_center, &HotKeyCenter::keyboardChanged, this, &GlobalHotKeys::followKeyboard);
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
    m_states = wantedStates();
    for (HotKeyState& state : m_states)
        registerState(state);
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

/// As they should be; nothing is registered yet.
QList<HotKeyState> GlobalHotKeys::wantedStates() {
    QList<HotKeyState> states;
    for (const ConfigurableHotKey& hotKey : configurableHotKeys)
        states.append(wantedState(hotKey));
    for (int position = 0; position < recentClipKeys.size(); ++position)
        states.append(wantedState(position));
    return states;
}

HotKeyState GlobalHotKeys::wantedState(const ConfigurableHotKey& hotKey) {
    HotKeyState state{hotKey.id, QString::fromLatin1(hotKey.preference.name),
                      m_preferences.hotKey(hotKey.preference)};
    reportUnusable(hotKey.preference);
    if (!m_handled.contains(hotKey.id))
        return state;
    const auto position = m_center.positionFor(state.shortcut.key.front());
    state.position = position.value_or(0);
    state.result = position ? HotKeyState::Result::taken : HotKeyState::Result::noSuchKey;
    return state;
}

HotKeyState GlobalHotKeys::wantedState(int recentClipPosition) const {
    return {HotKeyId(quint32(HotKeyId::firstRecentClip) + quint32(recentClipPosition)),
            QStringLiteral("recentClip%1").arg(recentClipPosition + 1),
            {recentClipKeys.at(recentClipPosition), recentClipModifiers.toInt()},
            m_center.numberRowPosition(recentClipPosition),
            HotKeyState::Result::taken};
}

void GlobalHotKeys::registerState(HotKeyState& state) {
    using Result = HotKeyState::Result;
    if (state.result != Result::taken)
        return;
    const Modifiers optional =
        recentClipPosition(state.id) ? recentClipOptionalModifiers : Modifiers();
    const auto registration = m_center.registerHotKey(state.position, state.shortcut.modifiers(),
                                                      quint32(state.id), optional);
    state.status = registration.status;
    state.reference = registration.reference;
    if (registration.status == 0) {
        state.result = Result::bound;
        return;
    }
    state.takenBy = ownerOf(state);
    logLine(QStringLiteral("[Quorvel HotKey] registration failed id=%1 status=%2")
                .arg(quint32(state.id))
                .arg(registration.status));
}

void GlobalHotKeys::followKeyboard(KeyboardChange change) {
    if (!m_active || m_suspensions > 0)
        return;
    if (change == KeyboardChange::everything || !moveKeys())
        registerAll();
}

/// Registers anew only what is on another key now: a key that is let go of, however shortly, goes
/// to the program in front meanwhile. False when one did not get its new key.
bool GlobalHotKeys::moveKeys() {
    QList<HotKeyState> wanted = wantedStates();
    QList<qsizetype> moved;
    for (qsizetype i = 0; i < wanted.size(); ++i)
        if (wanted.at(i).position == m_states.at(i).position && m_states.at(i).takenBy.isEmpty())
            wanted[i] = m_states.at(i);
        else
            moved.append(i);
    for (const qsizetype i : moved)
        release(m_states[i]);
    m_states = wanted;
    bool haveAll = true;
    for (const qsizetype i : moved) {
        registerState(m_states[i]);
        haveAll = haveAll && m_states.at(i).result != HotKeyState::Result::taken;
    }
    if (!moved.isEmpty())
        emit registered();
    return haveAll;
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
    for (HotKeyState& state : m_states)
        release(state);
}

void GlobalHotKeys::release(HotKeyState& state) {
    if (const HotKeyReference reference = std::exchange(state.reference, 0))
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
