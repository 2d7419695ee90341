#include "ui/MenuKeys.h"

#include "platform/HotKeyCenter.h"

namespace quorvel {

namespace {

bool givesCharacter(const QKeyEvent& press, QChar character) {
    return press.key() == character.toUpper().unicode();
}

/// The number row gives other characters in some layouts, yet its keys are labelled with digits.
std::optional<KeyPosition> positionOf(QChar character, const HotKeyCenter& positions) {
    if (character >= QLatin1Char('0') && character <= QLatin1Char('9'))
        return positions.numberRowPosition((character.digitValue() + 9) % 10);
    return positions.positionFor(character);
}

} // namespace

Modifiers modifiersFrom(Qt::KeyboardModifiers modifiers) {
    Modifiers result;
    result.setFlag(Modifier::command, modifiers.testFlag(Qt::MetaModifier));
    result.setFlag(Modifier::control, modifiers.testFlag(Qt::ControlModifier));
    result.setFlag(Modifier::option, modifiers.testFlag(Qt::AltModifier));
    result.setFlag(Modifier::shift, modifiers.testFlag(Qt::ShiftModifier));
    return result;
}

bool isTyping(const QKeyEvent& press) {
    if (press.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        return false;
    const QString text = press.text();
    return press.key() == Qt::Key_Backspace || (!text.isEmpty() && text.front().isPrint());
}

bool means(const QKeyEvent& press, const KeyEquivalent& equivalent, const HotKeyCenter* positions) {
    if (equivalent.key.size() != 1 || modifiersFrom(press.modifiers()) != equivalent.modifiers)
        return false;
    const QChar character = equivalent.key.front();
    if (givesCharacter(press, character))
        return true;
    return positions && press.nativeScanCode() != 0 &&
           positionOf(character, *positions) == press.nativeScanCode();
}

} // namespace quorvel
