#pragma once

#include "menu/MenuRenderer.h"
#include "ui/MenuKeyboard.h"
#include "ui/PopupGrab.h"
#include "ui/popover/PopoverStack.h"

namespace quorvel {

/// The menu as a window of its own: search field on top, rows with icons and details below it,
/// submenus as panels beside it. It takes the keyboard by a grab, never the input focus.
class PopoverMenu final : public MenuRenderer {
    Q_OBJECT

public:
    PopoverMenu(const Icons& icons, const StringTable& strings);

    void setKeyPositions(const HotKeyCenter& keys) { m_keyboard.setKeyPositions(keys); }

    void setClosingKey(quint32 nativeKeyCode, Modifiers modifiers) override;
    void open(const QList<MenuItem>& tree, MenuForm form) override;
    void update(const QList<MenuItem>& tree) override;
    void fillSubmenu(const QString& identifier, const QList<MenuItem>& items) override;
    void warmUp(const QList<MenuItem>& tree, MenuForm form) override;
    void close() override;
    bool isOpen() const override { return m_phase == Phase::open; }
    Modifiers currentModifiers() const override;

private:
    enum class Phase { closed, open, ending };

    void keyPressed(QKeyEvent* press);
    void keyReleased(const QKeyEvent& release);
    void escape();
    void choose(const MenuItem& item);
    void wentAway();
    void finish();

    Thumbnails m_thumbnails;
    PopoverContext m_context;
    PopoverStack m_stack;
    PopupGrab m_grab;
    MenuKeyboard m_keyboard;
    Phase m_phase = Phase::closed;
    std::optional<MenuChoice> m_choice;
};

} // namespace quorvel
