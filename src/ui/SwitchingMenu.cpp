#include "ui/SwitchingMenu.h"

namespace quorvel {

SwitchingMenu::SwitchingMenu(const Icons& icons, const StringTable& strings, Pasteboard& pasteboard)
    : m_native(icons, strings, pasteboard)
    , m_popover(icons, strings, pasteboard) {
    forward(m_native);
    forward(m_popover);
}

void SwitchingMenu::forward(MenuRenderer& from) {
    connect(&from, &MenuRenderer::submenuOpening, this, &MenuRenderer::submenuOpening);
    connect(&from, &MenuRenderer::searchChanged, this, &MenuRenderer::searchChanged);
    connect(&from, &MenuRenderer::answerNeeded, this, &MenuRenderer::answerNeeded);
    connect(&from, &MenuRenderer::modifiersChanged, this, &MenuRenderer::modifiersChanged);
    connect(&from, &MenuRenderer::painted, this, &MenuRenderer::painted);
    connect(&from, &MenuRenderer::ending, this, &MenuRenderer::ending);
    connect(&from, &MenuRenderer::closed, this, &MenuRenderer::closed);
    connect(&from, &MenuRenderer::chosen, this, &MenuRenderer::chosen);
}

void SwitchingMenu::setKeyPositions(const HotKeyCenter& keys) {
    m_native.setKeyPositions(keys);
    m_popover.setKeyPositions(keys);
}

void SwitchingMenu::setClosingKey(quint32 nativeKeyCode, Modifiers modifiers) {
    m_native.setClosingKey(nativeKeyCode, modifiers);
    m_popover.setClosingKey(nativeKeyCode, modifiers);
}

MenuRenderer& SwitchingMenu::menu(MenuForm form) {
    if (form == MenuForm::native)
        return m_native;
    return m_popover;
}

void SwitchingMenu::open(const QList<MenuItem>& tree, MenuForm form) {
    if (m_current != &menu(form))
        m_current->close();
    m_current = &menu(form);
    m_current->open(tree, form);
}

void SwitchingMenu::warmUp(const QList<MenuItem>& tree, MenuForm form) {
    menu(form).warmUp(tree, form);
}

} // namespace quorvel
