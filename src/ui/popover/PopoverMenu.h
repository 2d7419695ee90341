#pragma once

#include "menu/MenuRenderer.h"
#include "ui/MenuKeyboard.h"
#include "ui/PopupGrab.h"
#include "ui/popover/PopoverKeys.h"
#include "ui/popover/PopoverPointer.h"
#include "ui/popover/PopoverStack.h"
#include "ui/popover/PopoverTip.h"

#include <optional>

namespace quorvel {

/// The menu as a window of its own look: a search field above rows with details, submenus beside
/// it. Takes the keyboard by a grab, never the input focus. When another program holds the pointer
/// or the keyboard, it tries for a second to get them, and closes without the keyboard.
class PopoverMenu final : public MenuRenderer {
    Q_OBJECT

public:
    PopoverMenu(const Icons& icons, const StringTable& strings);

    /// Lets key equivalents be found by their place on the keyboard, too; `keys` outlives this.
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

    void connectStack();
    void secureGrab();
    void keyPressed(QKeyEvent& press);
    void keyReleased(const QKeyEvent& release);
    void modifierPressed(const QKeyEvent& press);
    void choose(const MenuItem& item);
    void stackHidden();
    void finish();
    void releaseWhenClosed();

    Thumbnails m_thumbnails;
    Thumbnails m_previews;
    const PopoverContext m_context;
    PopoverStack m_stack;
    PopoverKeys m_keys;
    PopoverPointer m_pointer;
    PopoverTip m_tip;
    MenuKeyboard m_keyboard;
    std::optional<PopupGrab> m_grab; ///< Of the panel that is the popup now.
    Phase m_phase = Phase::closed;
    std::optional<MenuChoice> m_choice;
};

} // namespace quorvel
