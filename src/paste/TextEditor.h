#pragma once

#include "paste/EditBeforePaste.h"

#include <optional>

namespace quorvel {

/// Where the user edits a text before it is pasted. Main thread only.
class TextEditor {
public:
    /// What the user has set, or nothing when they have cancelled.
    using Done = std::function<void(const std::optional<EditBeforePasteState>&)>;

    virtual ~TextEditor() = default;

    /// Shows an editor in front, with the keyboard in it. `done` is called exactly once, when it
    /// has gone from the screen. Editors that are open stay.
    virtual void present(const EditBeforePasteState& state, Done done) = 0;

    /// Cancels every editor that is open.
    virtual void close() = 0;
};

} // namespace quorvel
