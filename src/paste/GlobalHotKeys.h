#pragma once

#include "app/preferences/Preferences.h"
#include "platform/HotKeyCenter.h"

#include <QList>
#include <QObject>

namespace quorvel {

/// The hot keys that have an action, by their fixed identifiers.
enum class HotKeyId : quint32 {
    openMenu = 1,
};

/// How the registration of one hot key went.
struct HotKeyState {
    enum class Result { bound, taken, noSuchKey };

    HotKeyId id;
    QString name; ///< Its preference key.
    SnippetShortcut shortcut;
    KeyPosition position = 0;
    Result result = Result::noSuchKey;
    int status = 0; ///< The platform's error number when it is taken.
};

/// Registers the hot keys with their stored shortcuts and tells which was pressed. Registered anew
/// when a shortcut or the keyboard changes; a taken combination is logged and the others work on.
class GlobalHotKeys final : public QObject {
    Q_OBJECT

public:
    GlobalHotKeys(HotKeyCenter& center, const Preferences& preferences,
                  const PreferenceStore& store);

    void registerAll();
    void unregisterAll();

    const QList<HotKeyState>& states() const { return m_states; }

signals:
    /// The states are new: after every registration.
    void registered();

    void pressed(quorvel::HotKeyId id);

private:
    void registerOne(const keys::HotKey& key, HotKeyId id);
    void preferenceChanged(const QString& key);
    void dispatch(quint32 id);

    HotKeyCenter& m_center;
    const Preferences& m_preferences;
    bool m_active = false;
    QList<HotKeyReference> m_hotKeyRefs;
    QList<HotKeyState> m_states;
};

} // namespace quorvel
