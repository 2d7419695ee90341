#pragma once

#include "paste/HotKeyTable.h"
#include "platform/HotKeyCenter.h"

#include <QList>
#include <QObject>
#include <QSet>

namespace quorvel {

/// How the registration of one hot key went.
struct HotKeyState {
    enum class Result { bound, taken, noSuchKey, off };

    HotKeyId id;
    QString name; ///< Its preference key; of a fixed one a name like "recentClip1".
    SnippetShortcut shortcut;
    KeyPosition position = 0;
    Result result = Result::off;   ///< Off: nobody has anything to do for it.
    int status = 0;                ///< The platform's error number when it is taken.
    QString takenBy;               ///< The name of our own hot key that has the same keys.
    HotKeyReference reference = 0; ///< Of its registration; 0 for none.
};

/// Registers the hot keys with their stored shortcuts and tells which was pressed. Registered anew
/// when a shortcut or the keyboard changes; a taken combination is logged and the others work on.
class GlobalHotKeys final : public QObject {
    Q_OBJECT

public:
    enum class Handling { none, handled };

    GlobalHotKeys(HotKeyCenter& center, const Preferences& preferences,
                  const PreferenceStore& store);

    /// Whether somebody answers this configurable hot key. No key is taken from the user for one
    /// that nobody answers, as all are at first.
    void setHandling(HotKeyId id, Handling handling);

    void registerAll();
    void unregisterAll();

    /// Lets go of all keys while the user presses some to choose a shortcut. Each call is undone by
    /// one of `resume`; the states stay as they were meanwhile.
    void suspend();
    void resume();

    /// Empty while nothing is registered.
    const QList<HotKeyState>& states() const { return m_states; }

signals:
    /// The states are new: after every registration.
    void registered();

    /// With all the modifiers held; a hot key of a recent clip allows for more than its own.
    void pressed(quorvel::HotKeyId id, quorvel::Modifiers modifiersHeld);

private:
    QList<HotKeyState> wantedStates();
    HotKeyState wantedState(const ConfigurableHotKey& hotKey);
    HotKeyState wantedState(int recentClipPosition) const;
    void registerState(HotKeyState& state);
    void followKeyboard(KeyboardChange change);
    bool moveKeys();
    void release(HotKeyState& state);
    QString ownerOf(const HotKeyState& wanted) const;
    void reportUnusable(const keys::HotKey& key);
    void registerAgain();
    void releaseKeys();
    void preferenceChanged(const QString& key);

    HotKeyCenter& m_center;
    const Preferences& m_preferences;
    bool m_active = false;
    int m_suspensions = 0;
    QList<HotKeyId> m_handled;
    QList<HotKeyState> m_states;
    QSet<QString> m_reported; ///< Preferences whose stored shortcut was found unusable.
};

} // namespace quorvel
