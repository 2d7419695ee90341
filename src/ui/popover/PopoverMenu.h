#pragma once

#include "ui/PopupGrab.h"
#include "ui/PopupMenu.h"
#include "ui/popover/PopoverKeys.h"
#include "ui/popover/PopoverPointer.h"
#include "ui/popover/PopoverStack.h"
#include "ui/popover/PopoverTip.h"

#include <optional>

namespace quorvel {

/// The menu as a window of its own look: a search field above rows with details, submenus beside
/// it. Takes the keyboard by a grab, never the input focus. When another program holds the pointer
/// or the keyboard, it tries for a second to get them, and closes without the keyboard.
class PopoverMenu final : public PopupMenu {
    Q_OBJECT

public:
    PopoverMenu(const Icons& icons, const StringTable& strings, Pasteboard& pasteboard);

    void update(const QList<MenuItem>& tree) override;
    void fillSubmenu(const QString& identifier, const QList<MenuItem>& items) override;

private:
    void show(const QList<MenuItem>& tree, QPoint place) override;
    void prepare(const QList<MenuItem>& tree) override;
    void hide() override;
    void fitToScreen() override;
    void release() override;
    bool awaitsAnswer() const override;
    std::optional<MenuItem> find(const MenuKeyboard::Matches& matches) override;

    void connectStack();
    void secureGrab();
    void keyPressed(QKeyEvent& press);
    void stackHidden();

    Thumbnails m_thumbnails;
    Thumbnails m_previews;
    const PopoverContext m_context;
    PopoverStack m_stack;
    PopoverKeys m_keys;
    PopoverPointer m_pointer;
    PopoverTip m_tip;
    std::optional<PopupGrab> m_grab; ///< Of the panel that is the popup now.
};

} // namespace quorvel
