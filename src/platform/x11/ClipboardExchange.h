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
    qint64 afterWrite = 0;        ///< Number of our last write that it came after.
    bool wasThereAtStart = false; ///< Content from before our start: no change of the clipboard.
    bool ready = true;            ///< False while its picture is still being converted.
};

/// What the main thread asks of the clipboard thread.
struct ClipboardCommand {
    enum class Kind { own, clear, offerAsPrimary, expectReader, readPrimary, stop } kind;
    enum class Condition { none, whileOurs };

    ClipboardSnapshotItem content;
    quint32 window = 0; ///< Of the program that is to be told to paste, or whose selection is read.
    qint64 write = 0;   ///< Number of our own write, counted from 1.
    Condition condition = Condition::none; ///< Of a write: only while nobody has copied since.
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
    PasteboardActivity activity() const;
    bool isArriving() const; ///< Something was copied and has not been taken here yet.
    bool isConnectionLost() const;
    QStringList takePrimaryTexts(); ///< An answer for each reading, in order; empty for none.
    int takeFetches(); ///< How many expected readers have got their content since the last call.

    /// Whether the display server has carried out every command that was posted.
    bool isSettled() const;

    // Clipboard thread
    std::deque<ClipboardCommand> takeCommands();
    void confirmCommand(); ///< One more of them has been carried out.

    void setTransferring(bool isTransferring);
    void handOver(std::shared_ptr<ClipboardHandover> handover);
    void countSkipped(const QString& reason);
    void countFailed(const QString& reason);
    void countFetch();
    void handOverPrimary(const QString& text);
    void connectionLost();

    // Any thread
    void markReady(const std::shared_ptr<ClipboardHandover>& handover, QByteArray imagePng);

private:
    const std::function<void()> m_wakeMain;
    const std::function<void()> m_wakeThread;
    mutable std::mutex m_mutex;
    std::deque<ClipboardCommand> m_commands;
    int m_unconfirmed = 0; ///< Commands posted and not yet carried out.
    std::deque<std::shared_ptr<ClipboardHandover>> m_handovers;
    bool m_isTransferring = false;
    PasteboardActivity m_activity;
    QStringList m_primaryTexts;
    int m_fetches = 0;
    bool m_connectionLost = false;
};

} // namespace quorvel
