#pragma once

#include "platform/Pasteboard.h"

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>

namespace quorvel {

/// A finished content of the clipboard on its way from the clipboard thread to the main thread.
struct ClipboardHandover {
    ClipboardSnapshotItem item; ///< Without representations: the clipboard was emptied.
    QString text;
    QByteArray imagePng;
    bool wasThereAtStart = false; ///< Content from before our start: no change of the clipboard.
    bool ready = true;            ///< False while its picture is still being converted.
};

/// What the main thread asks of the clipboard thread.
struct ClipboardCommand {
    enum class Kind { own, clear, offerAsPrimary, expectReader, stop } kind;
    ClipboardSnapshotItem content;
    quint32 reader = 0; ///< A window of the program that is about to be told to paste.
};

/// The one place that both threads touch. Contents are handed over in the order in which they
/// were copied, none is skipped.
class ClipboardExchange {
public:
    /// `wakeMain` and `wakeThread` are called after something was put in; they must not block.
    ClipboardExchange(std::function<void()> wakeMain, std::function<void()> wakeThread);

    // Main thread
    void post(ClipboardCommand command);
    std::shared_ptr<ClipboardHandover> takeHandover(); ///< Null when none is ready.

    /// Takes what is ready, and in the same moment posts a command, so that no content that was
    /// copied before can come after it.
    std::deque<std::shared_ptr<ClipboardHandover>> takeHandoversAndPost(ClipboardCommand command);
    PasteboardActivity activity() const;
    bool isConnectionLost() const;
    int takeFetches(); ///< How many expected readers have got their content since the last call.

    /// Whether the display server has carried out every command that was posted.
    bool isSettled() const;

    // Clipboard thread
    std::deque<ClipboardCommand> takeCommands();
    void confirmCommand(); ///< One more of them has been carried out.

    /// False, and nothing handed over, when a write of our own is waiting already: it is newer.
    bool handOver(std::shared_ptr<ClipboardHandover> handover);
    void countSkipped(const QString& reason);
    void countFailed(const QString& reason);
    void countFetch();
    void connectionLost();

    // Any thread
    void markReady(const std::shared_ptr<ClipboardHandover>& handover, QByteArray imagePng);

private:
    std::deque<std::shared_ptr<ClipboardHandover>> takeReady();

    const std::function<void()> m_wakeMain;
    const std::function<void()> m_wakeThread;
    mutable std::mutex m_mutex;
    std::deque<ClipboardCommand> m_commands;
    int m_unconfirmed = 0; ///< Commands posted and not yet carried out.
    std::deque<std::shared_ptr<ClipboardHandover>> m_handovers;
    PasteboardActivity m_activity;
    int m_fetches = 0;
    bool m_connectionLost = false;
};

} // namespace quorvel
