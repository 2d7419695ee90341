#pragma once

#include "ui/KeyRepeat.h"
#include "ui/MenuKeys.h"

#include <functional>
#include <optional>

namespace quorvel {

class HotKeyCenter;

bool isModifierKey(int key);

/// The modifier that this key surely stands for.
Modifiers modifierOf(int key);

/// What key presses mean to an open menu, whatever it looks like: the grab takes our own hot keys,
/// too, and a held one repeats and must not count as pressed again.
class MenuKeyboard {
public:
    using Matches = std::function<bool(const MenuItem&)>;
    using Find = std::function<std::optional<MenuItem>(const Matches&)>;

    enum class Meaning { nothing, alreadyMeant, closes, chooses };
    struct Press {
        Meaning meaning = Meaning::nothing;
        MenuItem item; ///< What is chosen.
    };

    /// Lets key equivalents be found by their place on the keyboard; outlives this.
    void setKeyPositions(const HotKeyCenter& positions) { m_positions = &positions; }

    /// A key code of 0 means none.
    void setClosingKey(quint32 nativeKeyCode, Modifiers modifiers);

    /// `find` looks for an item among all that are shown.
    Press pressed(const QKeyEvent& press, const Find& find) const;
    void released(const QKeyEvent& release) { m_repeat.released(release); }

private:
    bool isClosingKey(const QKeyEvent& press) const;

    const HotKeyCenter* m_positions = nullptr;
    KeyRepeat m_repeat;
    quint32 m_closingKey = 0;
    Modifiers m_closingModifiers;
};

} // namespace quorvel
