#pragma once

#include "ui/NativeMenu.h"
#include "ui/popover/PopoverMenu.h"

namespace quorvel {

/// Both looks of the menu; each opening says which one it wants.
class SwitchingMenu final : public MenuRenderer {
    Q_OBJECT

public:
    SwitchingMenu(const Icons& icons, const StringTable& strings, Pasteboard& pasteboard);

    void setKeyPositions(const HotKeyCenter& keys);

    void setClosingKey(quint32 nativeKeyCode, Modifiers modifiers) override;
    void open(const QList<MenuItem>& tree, MenuForm form) override;
    void update(const QList<MenuItem>& tree) override { m_current->update(tree); }
    void fillSubmenu(const QString& identifier, const QList<MenuItem>& items) override {
        m_current->fillSubmenu(identifier, items);
    }
    void warmUp(const QList<MenuItem>& tree, MenuForm form) override;
    void close() override { m_current->close(); }
    bool isOpen() const override { return m_current->isOpen(); }
    Modifiers currentModifiers() const override { return m_current->currentModifiers(); }

private:
    MenuRenderer& menu(MenuForm form);
    void forward(MenuRenderer& from);

    NativeMenu m_native;
    PopoverMenu m_popover;
    MenuRenderer* m_current = &m_popover;
};

} // namespace quorvel
