#pragma once

#include "menu/MenuRenderer.h"
#include "ui/MenuKeyboard.h"
#include "ui/PopupScreen.h"

#include <optional>

namespace quorvel {

/// What every form of the menu does alike: the life of one showing, the keys that close it or
/// choose from it, the modifiers, and the screen. A form shows, hides and fills its own windows.
class PopupMenu : public MenuRenderer {
    Q_OBJECT

public:
    PopupMenu();

    /// Lets key equivalents be found by their place on the keyboard, too; `keys` outlives this.
    void setKeyPositions(const HotKeyCenter& keys) { m_keyboard.setKeyPositions(keys); }
    void setClosingKey(quint32 nativeKeyCode, Modifiers modifiers) override;

    void open(const QList<MenuItem>& tree, MenuForm form) override;
    void warmUp(const QList<MenuItem>& tree, MenuForm form) override;
    void close() override;
    bool isOpen() const override { return m_phase == Phase::open; }
    Modifiers currentModifiers() const override;

protected:
    enum class KeyUse { taken, free };

    /// At this place of the desktop: the pointer's.
    virtual void show(const QList<MenuItem>& tree, QPoint place) = 0;
    virtual void prepare(const QList<MenuItem>& tree) = 0;

    /// Takes every window away; `hidden` is called meanwhile.
    virtual void hide() = 0;

    /// The screen has become larger or smaller; only called while open.
    virtual void fitToScreen() = 0;

    /// Nothing is shown any more, and no event of the showing is under way.
    virtual void release() = 0;

    /// Whether the items are no answer yet to what is in the search field.
    virtual bool awaitsAnswer() const = 0;

    /// The first item of the tree that matches, submenus included.
    virtual std::optional<MenuItem> find(const MenuKeyboard::Matches& matches) = 0;

    /// Closes the menu; `reason` is for the log.
    void end(const char* reason);

    /// To be called when the windows have gone, whoever took them away. The event that has closed
    /// the menu may still be under way, so it is told when that is settled, and the grabs with it.
    void hidden();

    /// Modifiers, the closing key, the keys of the items; the rest is the form's own.
    KeyUse pressed(const QKeyEvent& press);
    void released(const QKeyEvent& release);

    void choose(const MenuItem& item);

    /// The one that the menu was last opened on.
    const PopupScreen& screen() const { return m_screen; }

    /// The choice that this item means now.
    static MenuChoice choiceOf(const MenuItem& item);

private:
    enum class Phase { closed, open, ending };

    void settleSearch(const QKeyEvent& press);
    void modifierPressed(const QKeyEvent& press);
    void chooseByKeys(const MenuItem& item);
    void end(const MenuChoice& choice);
    void finish();
    void releaseWhenClosed();

    MenuKeyboard m_keyboard;
    PopupScreen m_screen;
    Phase m_phase = Phase::closed;
    std::optional<MenuChoice> m_choice;
    const char* m_reason = nullptr; ///< Why the menu is being closed; null when the system does it.
};

} // namespace quorvel
