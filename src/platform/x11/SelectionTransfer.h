#pragma once

#include "platform/Pasteboard.h"
#include "platform/x11/AtomTable.h"

#include <xcb/xcb.h>

#include <chrono>
#include <optional>

namespace quorvel {

/// How long and how much one transfer may take.
struct TransferLimits {
    std::chrono::milliseconds stall{1500};  ///< Without any sign of life from the owner.
    std::chrono::milliseconds total{15000}; ///< From the first request to the last byte.
    qsizetype mostTypes = 128;
    qsizetype mostBytesPerType = 64 * 1024 * 1024;
    qsizetype mostBytes = 128 * 1024 * 1024;
};

/// What came out of a transfer. An item may be incomplete when the owner stalled or was replaced
/// after it had given something; `problem` tells why nothing (or not everything) came.
struct TransferResult {
    ClipboardSnapshotItem item;
    QString problem;
    bool secret = false;
    qsizetype droppedBytes = 0; ///< Had arrived, but not whole or too large.
};

/// Fetches everything that the present owner of a selection offers: first the list of types, then
/// the hint that it is a secret, then the text, the picture and the rest, one after the other,
/// without ever waiting: it is fed with events and asked for its deadline. Clipboard thread only.
class SelectionTransfer {
public:
    using Clock = std::chrono::steady_clock;

    SelectionTransfer(xcb_connection_t* connection, AtomTable& atoms, xcb_window_t root,
                      xcb_atom_t selection, xcb_timestamp_t time, const TransferLimits& limits);
    ~SelectionTransfer();
    SelectionTransfer(const SelectionTransfer&) = delete;
    SelectionTransfer& operator=(const SelectionTransfer&) = delete;

    xcb_window_t requestor() const { return m_requestor; }
    void handle(const xcb_selection_notify_event_t& event);
    void handle(const xcb_property_notify_event_t& event);

    /// When `expire` has to be called unless something arrives before.
    Clock::time_point deadline() const;
    void expire();

    /// Ends the transfer with what has arrived so far.
    void cutShort(const QString& reason);

    bool isFinished() const { return m_finished; }
    TransferResult takeResult();

private:
    struct Slot {
        QString type;
        std::optional<QByteArray> data;
    };
    struct Property {
        QByteArray data;
        xcb_atom_t type = XCB_ATOM_NONE;
        bool tooLarge = false;
    };

    void request(xcb_atom_t target);
    Property takeProperty(qsizetype mostBytes);
    void received(std::optional<QByteArray> data);
    void receivedTypes(const QByteArray& atoms);
    void startIncremental(const QByteArray& sizeHint);
    void appendChunk();
    void planOrder();
    void requestNext();
    void refuseAsTooLarge();
    qsizetype bytesLeft() const;
    void finish(const QString& problem);

    xcb_connection_t* m_connection;
    AtomTable& m_atoms;
    const xcb_atom_t m_selection;
    const xcb_timestamp_t m_time;
    const TransferLimits m_limits;
    const Clock::time_point m_start = Clock::now();
    Clock::time_point m_lastSign = m_start;
    xcb_window_t m_requestor;
    int m_propertyNumber = 0;
    xcb_atom_t m_property = XCB_ATOM_NONE;
    bool m_awaitingTypes = true;
    bool m_incremental = false;
    QByteArray m_incoming;
    QList<Slot> m_slots;      ///< In the owner's order.
    QList<qsizetype> m_order; ///< In which the slots are fetched.
    qsizetype m_next = 0;     ///< Position in the order of the slot being fetched.
    qsizetype m_bytes = 0;
    qsizetype m_droppedBytes = 0;
    bool m_secret = false;
    bool m_finished = false;
    QString m_problem;
};

} // namespace quorvel
