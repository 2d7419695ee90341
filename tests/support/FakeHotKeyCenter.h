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

    /// Another layout has the character at this position.
    void moveKey(char character, KeyPosition position) {
        m_moved.insert(QLatin1Char(character), position);
    }

    /// The user presses keys; false when nobody has them.
    bool press(KeyPosition position, Modifiers modifiers) {
        for (const Held& held : std::as_const(m_held))
            if (held.combinations.contains({position, modifiers.toInt()})) {
                emit pressed(held.id, modifiers);
                return true;
            }
        return false;
    }
    qsizetype registrationCount() const { return m_held.size(); }

    std::optional<KeyPosition> positionFor(QChar character) const override {
        if (m_missing.contains(character))
            return std::nullopt;
        return m_moved.value(character, character.unicode());
    }
    std::optional<QChar> characterAt(KeyPosition position) const override {
        const auto character = QChar::fromUcs2(char16_t(position));
        return character.isPrint() && !m_missing.contains(character) ? std::optional(character)
                                                                     : std::nullopt;
    }
    KeyPosition numberRowPosition(int index) const override {
        return KeyPosition(QStringLiteral("1234567890").at(index).unicode());
    }
    HotKeyRegistration registerHotKey(KeyPosition position, Modifiers modifiers, quint32 id,
                                      Modifiers optionalModifiers = {}) override {
        ++registrationsMade;
        const int status = statusOf({position, modifiers.toInt()});
        if (status != 0)
            return {0, status};
        Held held{{}, id};
        const quint32 optional = optionalModifiers.toInt();
        for (quint32 choice = optional;; choice = (choice - 1) & optional) {
            const Combination combination{position, modifiers.toInt() | choice};
            if (statusOf(combination) == 0)
                held.combinations.append(combination);
            if (choice == 0)
                break;
        }
        m_held.insert(++m_lastReference, held);
        return {m_lastReference, 0};
    }
    void unregisterHotKey(HotKeyReference reference) override { m_held.remove(reference); }

    int registrationsMade = 0;

private:
    struct Held {
        QList<Combination> combinations;
        quint32 id;
    };

    int statusOf(const Combination& combination) const {
        for (const Held& held : m_held)
            if (held.combinations.contains(combination))
                return 10;
        return m_taken.value(combination, 0);
    }

    QMap<HotKeyReference, Held> m_held;
    QMap<Combination, int> m_taken;
    QList<QChar> m_missing;
    QMap<QChar, KeyPosition> m_moved;
    HotKeyReference m_lastReference = 0;
};

} // namespace quorvel
