#pragma once

#include "platform/HotKeyCenter.h"

#include <QMap>
#include <QPair>

namespace quorvel {

/// A keyboard in memory: a position is the character's code.
class FakeHotKeyCenter final : public HotKeyCenter {
public:
    using Combination = QPair<KeyPosition, Modifiers::Int>;

    /// Another program has this combination.
    void take(KeyPosition position, Modifiers modifiers) {
        m_taken.insert({position, modifiers.toInt()}, 10);
    }

    /// Characters that no key gives.
    void removeKey(QChar character) { m_missing.append(character); }

    /// The user presses keys; false when nobody has them.
    bool press(KeyPosition position, Modifiers modifiers) {
        for (const Held& held : std::as_const(m_held))
            if (held.combination == Combination{position, modifiers.toInt()}) {
                emit pressed(held.id);
                return true;
            }
        return false;
    }
    qsizetype registrationCount() const { return m_held.size(); }

    std::optional<KeyPosition> positionFor(QChar character) const override {
        return m_missing.contains(character) ? std::nullopt
                                             : std::optional<KeyPosition>(character.unicode());
    }
    KeyPosition numberRowPosition(int index) const override {
        return KeyPosition(QStringLiteral("1234567890").at(index).unicode());
    }
    HotKeyRegistration registerHotKey(KeyPosition position, Modifiers modifiers,
                                      quint32 id) override {
        const Combination combination{position, modifiers.toInt()};
        for (const Held& held : std::as_const(m_held))
            if (held.combination == combination)
                return {0, 10};
        if (m_taken.contains(combination))
            return {0, m_taken.value(combination)};
        m_held.insert(++m_lastReference, {combination, id});
        return {m_lastReference, 0};
    }
    void unregisterHotKey(HotKeyReference reference) override { m_held.remove(reference); }

private:
    struct Held {
        Combination combination;
        quint32 id;
    };
    QMap<HotKeyReference, Held> m_held;
    QMap<Combination, int> m_taken;
    QList<QChar> m_missing;
    HotKeyReference m_lastReference = 0;
};

} // namespace quorvel
