#pragma once

#include <functional>
#include <string>
#include <string_view>

#include <sys/types.h>

namespace quorvel {

/// Runs a shell on a terminal of its own inside this one: keys go in, output comes out, and the
/// size of the window and the end of the shell are passed on. Needs a terminal on standard input.
class PtyRelay {
public:
    /// Starts the shell. Check `isStarted`.
    explicit PtyRelay(const std::string& shell);
    PtyRelay(const PtyRelay&) = delete;
    PtyRelay& operator=(const PtyRelay&) = delete;
    ~PtyRelay();

    bool isStarted() const { return m_shell > 0; }
    int master() const { return m_master; }
    pid_t shell() const { return m_shell; }

    /// Sends to the shell as if typed.
    void send(std::string_view keys) { m_toShell += keys; }

    /// Relays until the shell ends, and returns its exit status. `turned` is called with the output
    /// of each turn, which may be empty, and returns how long the next turn may wait for something
    /// to happen, in milliseconds (-1: for ever).
    int relay(const std::function<int(std::string_view output)>& turned);

private:
    struct Ready {
        bool keys = false;
        bool output = false;
        bool signals = false;
    };

    Ready wait(int timeout) const;
    void readKeys();
    std::string readOutput();
    void writeToShell();
    void takeSignals();
    void passSize() const;

    int m_master = -1;
    int m_signals = -1;
    pid_t m_shell = -1;
    bool m_hasKeys = true;
    bool m_isOver = false;
    int m_status = 0;
    std::string m_toShell;
};

} // namespace quorvel
