#pragma once

#include "platform/Workspace.h"

#include <QString>

#include <functional>
#include <optional>

namespace quorvel {

/// What came of asking for the text that the user has selected.
struct SelectedTextResult {
    enum class Outcome {
        taken,
        nothingSelected, ///< Or nothing that is text.
        focusElsewhere,  ///< The target did not get the focus in time.
        unavailable,     ///< Selections cannot be got at on this desktop.
    };

    Outcome outcome = Outcome::nothingSelected;
    QString text; ///< Not empty when it was taken.
};

/// The text that is selected in the program in front. Main thread only.
class SelectedText {
public:
    using Done = std::function<void(const SelectedTextResult&)>;

    virtual ~SelectedText() = default;

    /// Gets the selected text, of the target when one is given. It may have to make the program
    /// copy: the pasteboard may hold something else afterwards, whatever the outcome. `done` is
    /// called exactly once, at once or from the main loop, within about a second; later when the
    /// program has copied by then and is slow to give what it has copied.
    virtual void take(const std::optional<FocusTarget>& target, Done done) = 0;

    /// The same for a text that stands just before the caret: selects it first. Nothing is selected
    /// when another text stands there, and the caret is where it was; `unavailable` in programs in
    /// which the keys for that could do harm.
    virtual void takeTyped(const std::optional<FocusTarget>& target, const QString& text,
                           Done done) = 0;
};

} // namespace quorvel
