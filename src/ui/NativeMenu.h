#pragma once

#include "ui/MenuStyle.h"
#include "ui/MenuWidget.h"
#include "ui/PopupGrab.h"
#include "ui/PopupMenu.h"
#include "ui/Thumbnails.h"

namespace quorvel {

class Icons;
class Pasteboard;
class StringTable;

/// The menu as the toolkit's own popup menu. It takes the keyboard by a grab, never the input
/// focus.
class NativeMenu final : public PopupMenu {
    Q_OBJECT

public:
    NativeMenu(const Icons& icons, const StringTable& strings, Pasteboard& pasteboard);

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

    MenuContext context(const Icons& icons, const StringTable& strings, Pasteboard& pasteboard);
    QIcon icon(const MenuItem& item, const Icons& icons);

    Thumbnails m_thumbnails;
    MenuStyle m_style;
    MenuContext m_context;
    MenuWidget m_menu;
    PopupGrab m_grab;
};

} // namespace quorvel
