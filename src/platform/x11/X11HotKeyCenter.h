#pragma once

#include "platform/HotKeyCenter.h"
#include "platform/x11/HotKeyGuard.h"
#include "platform/x11/X11KeyGrabs.h"
#include "platform/x11/X11KeyTables.h"

#include <QAbstractNativeEventFilter>
#include <QMap>
#include <QSet>

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
    std::optional<QChar> characterAt(KeyPosition position) const override;
    KeyPosition numberRowPosition(int index) const override;
    HotKeyRegistration registerHotKey(KeyPosition position, Modifiers modifiers, quint32 id,
                                      Modifiers optionalModifiers = {}) override;
    void unregisterHotKey(HotKeyReference reference) override;

    std::optional<xcb_keycode_t> heldKey() const override;
    void standAside(xcb_keycode_t key, quint16 modifiers) override;
    void standBack() override;

private:
    struct KeyTime {
        xcb_keycode_t key;
        xcb_timestamp_t time;
    };

    QList<X11KeyGrabs::Grab> grabsFor(const X11KeyGrabs::Grab& required, Modifiers optional) const;
    void noteMissed(const QList<X11KeyGrabs::Failure>& failures, quint32 id);

    bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;
    bool handlePress(const xcb_key_press_event_t& event);
    void handleRelease(const xcb_key_release_event_t& event);
    bool isRepetition(const xcb_key_press_event_t& event) const;
    void answer(const X11KeyGrabs::Grab& grab);
    void handleKeyboard(const xcb_generic_event_t& event);
    void scheduleKeyboardCheck();
    void checkKeyboard();

    xcb_connection_t* const m_connection; ///< Qt's.
    const xcb_window_t m_root;
    int m_xkbEvent = -1; ///< Number of the keyboard extension's events; -1 without it.
    std::optional<X11KeyTables> m_tables;
    X11KeyGrabs m_grabs;
    QMap<HotKeyReference, quint32> m_ids;
    HotKeyReference m_lastReference = 0;
    QSet<quint32> m_missed;        ///< Optional combinations that are known to be somebody else's.
    std::optional<KeyTime> m_held; ///< With the time of its last press or repetition.
    std::optional<KeyTime> m_released; ///< The last release of a hot key's key.
    std::optional<KeyTime> m_forced;   ///< A held key that was released in the user's place.
    bool m_checkScheduled = false;
};

} // namespace quorvel
