#pragma once

#include "foundation/MainQueue.h"
#include "platform/KeyPoster.h"
#include "platform/x11/HotKeyGuard.h"
#include "platform/x11/PasteChords.h"
#include "platform/x11/X11KeyTables.h"
#include "platform/x11/X11SyntheticKeys.h"

#include <QObject>

#include <chrono>

namespace quorvel {

/// How long a paste may wait for what.
struct KeyPostLimits {
    std::chrono::milliseconds interval{2};  ///< Between two looks at the focus and the keys.
    std::chrono::milliseconds focus{500};   ///< For the target to get the focus.
    std::chrono::milliseconds release{200}; ///< For the user to let go of the keyboard.
};

/// Posts the paste keys through the server's test extension.
class X11KeyPoster final : public KeyPoster {
public:
    /// What the poster needs of the clipboard.
    struct Clipboard {
        /// Makes the PRIMARY selection offer what is on the clipboard; asked for before keys are
        /// posted to a program that pastes from there.
        std::function<void()> offerPrimary;

        /// Tells it that the program of this window is about to paste.
        std::function<void(quint32)> expectReader;

        /// Whether the server knows of everything that was written; no key is posted before.
        std::function<bool()> isSettled;
    };

    X11KeyPoster(X11Connection& connection, MainQueue& queue, HotKeyGuard& hotKeys,
                 Clipboard clipboard, KeyPostLimits limits = {});

    bool isTrusted() const override;
    void postPaste(const std::optional<FocusTarget>& target, Done done) override;

    /// The same with the copy keys; `unavailable` for a program that has none.
    void postCopy(const std::optional<FocusTarget>& target, Done done);

    /// The same with keys that move the caret, pressed so many times.
    void postCaretKeys(const std::optional<FocusTarget>& target, CaretKeys keys, int times,
                       Done done);

private:
    enum class Purpose { paste, copy, caret };
    struct Job;
    using JobHandle = std::shared_ptr<Job>;

    void start(Job job);
    void advance(const JobHandle& job);
    void waitOn(const JobHandle& job);
    void finish(const JobHandle& job, PostOutcome outcome);

    std::optional<xcb_window_t> rightFocus(const Job& job) const;
    bool userHoldsKeys(const X11KeyTables& tables) const;
    bool prepare(Job& job, xcb_window_t focus);
    void prepareClipboard(const Job& job, xcb_window_t focus);
    static std::optional<PasteChord> chordOf(const Job& job, const WindowClass& windowClass);
    bool isReady(const Job& job) const;
    bool post(const Job& job, xcb_window_t focus);
    void tidyUp();
    static xcb_keycode_t keyOf(const PasteChord& chord, const X11KeyTables& tables);

    X11Connection& m_connection;
    MainQueue& m_queue;
    HotKeyGuard& m_hotKeys;
    const Clipboard m_clipboard;
    const KeyPostLimits m_limits;
    const X11Windows m_windows;
    X11SyntheticKeys m_keys;
    WorkItem m_tidying;
    QObject m_receiver; ///< Ends the waiting with us.
};

} // namespace quorvel
