#pragma once

#include "platform/Workspace.h"

#include <functional>
#include <optional>

namespace quorvel {

enum class PostOutcome {
    posted,
    focusElsewhere, ///< The target did not get the focus in time; no key was sent.
    unavailable,    ///< Synthetic keys cannot be posted here; no key was sent.
};

/// Synthetic keys into the program that has the focus. Main thread only.
class KeyPoster {
public:
    using Done = std::function<void(PostOutcome)>;

    virtual ~KeyPoster() = default;

    /// Whether keys can be posted on this desktop at all.
    virtual bool isTrusted() const = 0;

    /// Presses and releases the paste keys of the program in front. With a target it first waits
    /// (a bounded time, without blocking) until that target has the focus; keys never go to
    /// another window. Modifiers that the user still holds are taken out of the way and put back.
    /// `done` is called exactly once, from the main loop.
    virtual void postPaste(const std::optional<FocusTarget>& target, Done done) = 0;
};

} // namespace quorvel
