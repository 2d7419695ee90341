#pragma once

#include "platform/HotKeyCenter.h"
#include "platform/x11/HotKeyGuard.h"
#include "platform/x11/X11KeyTables.h"

#include <QAbstractNativeEventFilter>
#include <QMap>

namespace quorvel {

/// Hot keys as grabs on Qt's own connection: a grab of another connection would keep the keyboard
/// from our own menus. Needs the application object, on X11.
class X11HotKeyCenter final : public HotKeyCenter,
                              public HotKeyGuard,
                              private QAbstractNativeEventFilter {
    Q_OBJECT

public:
    explicit X11HotKeyCenter(xcb_window_t root);
    ~X11HotKeyCenter() override;

    std::optional<KeyPosition> positionFor(QChar character) const override;
    KeyPosition numberRowPosition(int index) const override;
    HotKeyRegistration registerHotKey(KeyPosition position, Modifiers modifiers,
                                      quint32 id) override;
    void unregisterHotKey(HotKeyReference reference) override;

    std::optional<xcb_keycode_t> heldKey() const override;
    void standAside(xcb_keycode_t key, quint16 modifiers) override;
    void standBack() override;

private:
    struct HotKey {
        quint32 id;
        xcb_keycode_t key;
        quint16 modifiers;
        quint16 numLock; ///< The Num Lock bit for which it was grabbed.

        bool isFor(xcb_keycode_t otherKey, quint16 otherModifiers) const {
            return key == otherKey && modifiers == otherModifiers;
        }
    };
    struct KeyTime {
        xcb_keycode_t key;
        xcb_timestamp_t time;
    };

    int grab(const HotKey& hotKey);
    void ungrab(const HotKey& hotKey);
    HotKeyReference find(xcb_keycode_t key, quint16 modifiers) const;
    void roundTrip();

    bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;
    bool handlePress(const xcb_key_press_event_t& event);
    void handleRelease(const xcb_key_release_event_t& event);
    bool isRepetition(const xcb_key_press_event_t& event) const;
    void answer(HotKeyReference reference);
    void handleKeyboard(const xcb_generic_event_t& event);
    void scheduleKeyboardCheck();
    void checkKeyboard();

    xcb_connection_t* const m_connection; ///< Qt's.
    const xcb_window_t m_root;
    int m_xkbEvent = -1; ///< Number of the keyboard extension's events; -1 without it.
    std::optional<X11KeyTables> m_tables;
    QMap<HotKeyReference, HotKey> m_hotKeys;
    HotKeyReference m_lastReference = 0;
    std::optional<KeyTime> m_held;     ///< With the time of its last press or repetition.
    std::optional<KeyTime> m_released; ///< The last release of a hot key's key.
    std::optional<KeyTime> m_forced;   ///< A held key that was released in the user's place.
    QList<HotKey> m_aside;
    bool m_checkScheduled = false;
};

} // namespace quorvel
