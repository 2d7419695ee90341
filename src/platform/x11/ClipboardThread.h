#pragma once

#include "foundation/BackgroundQueue.h"
#include "platform/x11/ClipboardExchange.h"
#include "platform/x11/SelectionServer.h"
#include "platform/x11/SelectionTransfer.h"
#include "platform/x11/XcbReply.h"

#include <deque>
#include <memory>
#include <optional>

namespace quorvel {

/// The clipboard's side of the display, on a thread and a connection of its own: watches who owns
/// it, fetches what was copied, answers requests for what we put there. A thread is needed even
/// for our own text fields: whoever pastes from us waits for this answer.
class ClipboardThread {
public:
    /// `wakeFd` becomes readable when commands wait in the exchange. The exchange must outlive
    /// this object.
    ClipboardThread(ClipboardExchange& exchange, int wakeFd, TransferLimits limits);

    /// Connects; false when there is no display or it lacks XFixes.
    bool connect();

    /// Serves until the stop command or the loss of the display.
    void run();

private:
    using Clock = std::chrono::steady_clock;

    /// What stands for a content of which nothing came: an empty one, or nothing when there is
    /// a newer one already.
    enum class IfUnreadable { isEmpty, passOver };

    bool setUp();
    void createWindow();
    void fetchContentFromBeforeStart();
    void handleEvents();
    void handleEvent(const xcb_generic_event_t& event);
    void handleOwnerChange(const xcb_generic_event_t& event);
    SelectionTransfer* transferOf(xcb_window_t requestor);
    void handleSelectionRequest(const xcb_selection_request_event_t& event);
    void handlePropertyNotify(const xcb_property_notify_event_t& event);
    void handleCommands();
    void askForTime();
    void carryOut(const ClipboardCommand& command, xcb_timestamp_t time);
    void write(const ClipboardCommand& command, xcb_timestamp_t time);
    void expectReader(xcb_window_t window);
    void readPrimary(xcb_window_t window);
    void completePrimaryTransfer();
    void confirmCommand();
    void startTransfer(xcb_timestamp_t time, bool wasThereAtStart);
    void abandonTransfer(const QString& reason);
    void completeTransfer(IfUnreadable ifUnreadable);
    void handOver(ClipboardHandover content);
    void keepAlive(xcb_timestamp_t time);
    void waitForSomething();
    void expireWhatIsDue();
    int millisecondsToNextDeadline() const;

    ClipboardExchange& m_exchange;
    const int m_wakeFd;
    const TransferLimits m_limits;
    XcbConnection m_connection;
    std::unique_ptr<AtomTable> m_atoms;
    xcb_window_t m_root = XCB_WINDOW_NONE;
    xcb_window_t m_window = XCB_WINDOW_NONE;
    xcb_atom_t m_clipboard = XCB_ATOM_NONE;
    xcb_atom_t m_timeProperty = XCB_ATOM_NONE;
    uint8_t m_xfixesEvent = 0;
    std::unique_ptr<SelectionServer> m_server;
    std::unique_ptr<SelectionServer> m_primaryServer;
    std::unique_ptr<SelectionTransfer> m_transfer;
    std::unique_ptr<SelectionTransfer> m_primaryTransfer;
    bool m_transferFromStart = false;
    qint64 m_transferAfterWrite = 0;
    qint64 m_lastWrite = 0; ///< Number of the last write of our own that was carried out.
    std::optional<ClipboardSnapshotItem> m_lastForeign; ///< Offered again when its owner exits.
    std::deque<ClipboardCommand> m_awaitingTime;
    xcb_timestamp_t m_ownClearTime = XCB_CURRENT_TIME;
    bool m_stopping = false;
    ThreadBackgroundQueue m_imageConversion;
};

} // namespace quorvel
