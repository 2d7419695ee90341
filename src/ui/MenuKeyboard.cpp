#include "ui/MenuKeyboard.h"

#include <algorithm>
#include <array>

namespace quorvel {

namespace {

constexpr std::array modifierKeys{Qt::Key_Alt,     Qt::Key_AltGr,   Qt::Key_Control,
                                  Qt::Key_Shift,   Qt::Key_Meta,    Qt::Key_Super_L,
                                  Qt::Key_Super_R, Qt::Key_Hyper_L, Qt::Key_Hyper_R};

} // namespace

bool isModifierKey(int key) {
    return std::find(modifierKeys.begin(), modifierKeys.end(), key) != modifierKeys.end();
}

/// Meta is left out: it is also what Alt gives together with Shift.
Modifiers modifierOf(int key) {
    switch (key) {
    case Qt::Key_Alt:
        return Modifier::option;
    case Qt::Key_Control:
        return Modifier::control;
    case Qt::Key_Shift:
        return Modifier::shift;
    default:
        return {};
    }
}

void MenuKeyboard::setClosingKey(quint32 nativeKeyCode, Modifiers modifiers) {
    m_closingKey = nativeKeyCode;
    m_closingModifiers = modifiers;
}

MenuKeyboard::Press MenuKeyboard::pressed(const QKeyEvent& press, const Find& find) const {
    const bool isRepeat = m_repeat.isRepeat(press);
    if (isClosingKey(press))
        return {isRepeat ? Meaning::alreadyMeant : Meaning::closes, {}};
    const auto item = find([&](const MenuItem& candidate) {
        return means(press, candidate.keyEquivalent, m_positions);
    });
    if (!item)
        return {};
    return {isRepeat ? Meaning::alreadyMeant : Meaning::chooses, *item};
}

bool MenuKeyboard::isClosingKey(const QKeyEvent& press) const {
    return m_closingKey != 0 && press.nativeScanCode() == m_closingKey &&
           modifiersFrom(press.modifiers()) == m_closingModifiers;
}

} // namespace quorvel
