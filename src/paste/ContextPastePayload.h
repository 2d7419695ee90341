#pragma once

#include <QString>

#include <optional>

namespace quorvel {

/// What a row pastes that is no clip or snippet itself: a part of one, or something made of it.
struct ContextPastePayload {
    QString value;

    /// The keyboard layout to switch to when it is pasted; absent to keep the layout.
    std::optional<QString> targetKeyboardLayoutID;

    /// The payload as the represented object of a row: JSON, so that any value survives.
    QString text() const;

    /// Nothing for a text that `text` has not made.
    static std::optional<ContextPastePayload> fromText(const QString& text);

    bool operator==(const ContextPastePayload&) const = default;
};

} // namespace quorvel
