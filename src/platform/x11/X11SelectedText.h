#pragma once

#include "foundation/MainQueue.h"
#include "platform/SelectedText.h"
#include "platform/x11/X11KeyPoster.h"
#include "platform/x11/X11Pasteboard.h"

namespace quorvel {

/// Presses the copy keys of the program and waits for the clipboard to change; of programs in
/// which these keys could do harm it reads the PRIMARY selection instead.
class X11SelectedText final : public SelectedText {
public:
    X11SelectedText(X11Connection& connection, X11Pasteboard& pasteboard, X11KeyPoster& keys,
                    MainQueue& queue);

    void take(const std::optional<FocusTarget>& target, Done done) override;
    void takeTyped(const std::optional<FocusTarget>& target, const QString& text,
                   Done done) override;

    /// Beyond so many, a typed text is not selected key by key.
    static constexpr int mostTypedCharacters = 500;

    /// How long a program may take to copy.
    static constexpr std::chrono::milliseconds patience{700};

private:
    struct Waiting;

    void readPrimary(xcb_window_t focus, const Done& done);
    void pressCopyKeys(const std::optional<FocusTarget>& target, const Done& done);
    void awaitCopy(qint64 countBefore, const Done& done);

    X11Pasteboard& m_pasteboard;
    X11KeyPoster& m_keys;
    MainQueue& m_queue;
    const X11Windows m_windows;
    QObject m_receiver; ///< Ends the waiting with us.
};

} // namespace quorvel
