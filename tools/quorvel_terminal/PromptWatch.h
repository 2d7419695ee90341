#pragma once

#include <chrono>
#include <string_view>

#include <sys/types.h>

namespace quorvel {

/// Finds out when a shell that has just been started waits at its prompt, and whether it takes
/// pastes in one piece there.
class PromptWatch {
public:
    using Clock = std::chrono::steady_clock;

    PromptWatch(int master, pid_t shell);

    /// What the shell has written.
    void see(std::string_view output);

    enum class Prompt { notYet, takesPastes, takesKeys };

    /// To be asked after every output, and every `interval` when there is none.
    Prompt prompt() const;

    static constexpr std::chrono::milliseconds interval{50};

    /// Without output for so long, a shell with a line editor waits for keys.
    static constexpr std::chrono::milliseconds editorQuiet{200};

    /// The same for one that leaves lines to the terminal: it could also be busy starting.
    static constexpr std::chrono::milliseconds plainQuiet{1000};

    /// A shell may have no prompt at all.
    static constexpr std::chrono::milliseconds silence{4000};

private:
    bool hasLineEditor() const;
    bool isIdle() const;

    int m_master;
    pid_t m_shell;
    Clock::time_point m_lastOutput = Clock::now();
    bool m_hasWritten = false;
    bool m_takesPastes = false;
    std::size_t m_matched[2]{}; ///< How far the sequences for on and off have come.
};

} // namespace quorvel
