#pragma once

#include <deque>
#include <functional>

namespace quorvel {

/// Who may use the clipboard for a while, one after the other: whoever writes to it or makes a
/// program write to it, and relies on what is there until that is done.
class ClipboardTurns {
public:
    using Begin = std::function<void()>;

    /// Called at once when nobody has the turn, else when all who asked before have ended theirs.
    void ask(Begin begin);

    /// Of whoever has the turn: the next one begins.
    void end();

private:
    void beginNext();

    std::deque<Begin> m_waiting;
    bool m_isTaken = false;
};

} // namespace quorvel
