#pragma once

#include "menu/MenuRenderer.h"
#include "ui/MenuKeyboard.h"
#include "ui/MenuStyle.h"
#include "ui/MenuWidget.h"
#include "ui/PopupGrab.h"
#include "ui/Thumbnails.h"

#include <optional>

namespace quorvel {

class Icons;
class StringTable;

/// The menu as the toolkit's own popup menu. It takes the keyboard by a grab, never the input
/// focus.
class NativeMenu final : public MenuRenderer {
    Q_OBJECT

public:
    NativeMenu(const Icons& icons, const StringTable& strings);

    /// Lets key equivalents be found by their place on the keyboard, too; `keys` outlives this.
    void setKeyPositions(const HotKeyCenter& keys);

    /// The hot key that opened the menu; pressed again while the menu is open, it closes it.
    /// A key code of 0 means none.
    void setClosingKey(quint32 nativeKeyCode, Modifiers modifiers) override;

    void open(const QList<MenuItem>& tree, MenuForm form) override;
    void update(const QList<MenuItem>& tree) override;
    void fillSubmenu(const QString& identifier, const QList<MenuItem>& items) override;
    void warmUp(const QList<MenuItem>& tree, MenuForm form) override;
    void close() override;
    bool isOpen() const override;
    Modifiers currentModifiers() const override;

private:
    enum class Phase { closed, open, ending };

    MenuContext context(const Icons& icons, const StringTable& strings);
    QIcon icon(const MenuItem& item, const Icons& icons);
    bool takesKey(const QKeyEvent& press);
    void keyReleased(const QKeyEvent& release);
    void modifierPressed(const QKeyEvent& press);
    void choose(const MenuItem& item);
    void menuHidden();
    void finish();
    void releaseWhenClosed();

    Thumbnails m_thumbnails;
    MenuStyle m_style;
    MenuContext m_context;
    MenuWidget m_menu;
    PopupGrab m_grab;
    MenuKeyboard m_keyboard;
    Phase m_phase = Phase::closed;
    std::optional<MenuChoice> m_choice;
};

} // namespace quorvel
