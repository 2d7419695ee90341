#include "ui/recorder/ChordReader.h"

#include "ui/MenuKeyboard.h"

#include <algorithm>
#include <array>

namespace quorvel {

namespace {

using Kind = ChordReading::Kind;

/// As X11 numbers them; what Alt gives when Shift is held already.
constexpr quint32 metaLeft = 0xffe7;
constexpr quint32 metaRight = 0xffe8;

constexpr std::array lockKeys{Qt::Key_CapsLock, Qt::Key_NumLock, Qt::Key_ScrollLock};

struct Control {
    Qt::Key key;
    Kind kind;
};

constexpr std::array controls{
    Control{Qt::Key_Escape, Kind::cancel}, Control{Qt::Key_Backspace, Kind::reset},
    Control{Qt::Key_Delete, Kind::reset},  Control{Qt::Key_Tab, Kind::leave},
    Control{Qt::Key_Backtab, Kind::leave},
};

bool isAltWithShift(const QKeyEvent& event) {
    return event.nativeVirtualKey() == metaLeft || event.nativeVirtualKey() == metaRight;
}

Modifiers modifierOfKey(const QKeyEvent& event) {
    if (isAltWithShift(event))
        return Modifier::option;
    switch (event.key()) {
    case Qt::Key_Meta:
    case Qt::Key_Super_L:
    case Qt::Key_Super_R:
        return Modifier::command;
    default:
        return modifierOf(event.key());
    }
}

/// Qt takes every key that is called Meta for one that sets Super.
Modifiers heldAside(const QKeyEvent& event) {
    const Modifiers held = modifiersFrom(event.modifiers());
    return isAltWithShift(event) ? held & ~Modifiers(Modifier::command) : held;
}

/// A platform that does not number its keys still says what they give.
std::optional<QChar> characterOf(const QKeyEvent& press, const HotKeyCenter& keys) {
    if (press.nativeScanCode() != 0)
        return keys.characterAt(press.nativeScanCode());
    const QChar character = press.key() <= 0xffff ? QChar(char16_t(press.key())) : QChar();
    return character.isPrint() ? std::optional(character.toLower()) : std::nullopt;
}

Kind controlKind(const QKeyEvent& press) {
    const bool isPlain = !(modifiersFrom(press.modifiers()) & ~Modifiers(Modifier::shift));
    for (const Control& control : controls)
        if (isPlain && press.key() == control.key)
            return control.kind;
    return Kind::nothing;
}

} // namespace

ChordReading readPress(const QKeyEvent& press, const HotKeyCenter& keys) {
    const Modifiers held = modifiersFrom(press.modifiers());
    if (isModifierKey(press.key()))
        return {Kind::modifiers, heldAside(press) | modifierOfKey(press), {}};
    if (press.isAutoRepeat() ||
        std::find(lockKeys.begin(), lockKeys.end(), press.key()) != lockKeys.end())
        return {};
    if (const Kind kind = controlKind(press); kind != Kind::nothing)
        return {kind, held, {}};
    const auto character = characterOf(press, keys);
    if (!character)
        return {Kind::unusable, held, {}};
    return {Kind::chord, held, {QString(*character), held.toInt()}};
}

ChordReading readRelease(const QKeyEvent& release) {
    if (!isModifierKey(release.key()))
        return {};
    return {Kind::modifiers, heldAside(release) & ~modifierOfKey(release), {}};
}

} // namespace quorvel
