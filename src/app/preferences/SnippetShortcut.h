#pragma once

#include "foundation/Modifiers.h"

#include <QByteArray>
#include <QJsonObject>
#include <QString>

#include <optional>

namespace quorvel {

/// A key with modifiers, as stored for hot keys and snippets.
struct SnippetShortcut {
    QString key; ///< One lower-case character.
    quint32 modifiersRawValue = 0;

    /// Only the four modifier bits that shortcuts may use.
    Modifiers modifiers() const { return Modifiers::fromInt(modifiersRawValue & modifierMask); }

    /// Whether it leaves what is typed alone, as one for all programs must: with Shift at most, a
    /// letter would be taken from every program.
    bool sparesTyping() const {
        return modifiers() & (Modifier::control | Modifier::option | Modifier::command);
    }

    QByteArray toJson() const;

    /// Absent when the bytes are not a shortcut at all; a key of the wrong length is kept as it is.
    static std::optional<SnippetShortcut> fromJson(const QByteArray& bytes);

    /// The same as an object inside a larger document.
    QJsonObject toJsonObject() const;
    static std::optional<SnippetShortcut> fromJsonObject(const QJsonObject& object);

    bool operator==(const SnippetShortcut&) const = default;
};

} // namespace quorvel
