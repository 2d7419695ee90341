#pragma once

#include "platform/Pasteboard.h"
#include "platform/x11/AtomTable.h"
#include "platform/x11/SelectionReaders.h"

#include <xcb/xcb.h>

#include <chrono>
#include <functional>
#include <list>
#include <optional>

namespace quorvel {

/// Answers other programs' requests for one selection that we own: any type, several at once, and
/// large content in pieces. Keeps the last few contents, so that a request that carries an older
/// time stamp, or one of a program that was told to paste, gets what was there at that time.
/// Clipboard thread only.
class SelectionServer {
public:
    using Clock = std::chrono::steady_clock;

    SelectionServer(xcb_connection_t* connection, AtomTable& atoms, xcb_window_t window,
                    xcb_atom_t selection);

    /// Takes the selection with this content at the given server time. While a reader is expected
    /// it is served to everybody else at once, but announced to the display only after that: there
    /// are programs that drop what they are pasting when the selection changes meanwhile.
    void own(const ClipboardSnapshotItem& content, xcb_timestamp_t time);

    /// Empties the selection, whoever has it; announced in the same way.
    void giveUp(xcb_timestamp_t time);

    /// Somebody else has it now: the contents are forgotten.
    void lost();

    /// The program of this window is about to be told to paste: what is offered now is what it
    /// gets, even if it asks late and the content is another one by then. `fetched` is called once,
    /// when it has the content and asks no more; never when it does not ask.
    void expectReader(xcb_window_t window, std::function<void()> fetched);

    bool isOwner() const { return !m_offers.isEmpty(); }
    xcb_timestamp_t ownedSince() const;

    void handle(const xcb_selection_request_event_t& event);
    void handle(const xcb_property_notify_event_t& event);
    void forgetRequestor(xcb_window_t window);

    /// When `expire` has to be called; absent while nothing is being sent in pieces and no reader
    /// is expected.
    std::optional<Clock::time_point> deadline() const;

    /// Drops pieces that nobody has fetched for too long, and readers that have what they want.
    void expire();

private:
    struct Offer {
        ClipboardSnapshotItem content;
        xcb_timestamp_t since;
        bool isAnnounced = false;
    };
    struct Outgoing {
        xcb_window_t requestor;
        xcb_atom_t property;
        xcb_atom_t type;
        QByteArray data;
        qsizetype sent = 0;
        Clock::time_point lastSign = Clock::now();
    };

    void announce();
    void endReaders();
    bool answer(const xcb_selection_request_event_t& event, xcb_atom_t property);
    bool isContent(xcb_atom_t target);
    const Offer& offerSince(xcb_timestamp_t since) const;
    const Offer& offerAt(xcb_timestamp_t time) const;
    bool convert(const Offer& offer, xcb_window_t requestor, xcb_atom_t target,
                 xcb_atom_t property);
    bool convertContent(const Offer& offer, xcb_window_t requestor, xcb_atom_t target,
                        xcb_atom_t property);
    bool convertMultiple(const Offer& offer, xcb_window_t requestor, xcb_atom_t property);
    void sendTargets(const Offer& offer, xcb_window_t requestor, xcb_atom_t property);
    void startOutgoing(xcb_window_t requestor, xcb_atom_t property, xcb_atom_t type,
                       const QByteArray& data);
    void sendPiece(Outgoing& outgoing);
    void trimOffers();
    void stopWatching(xcb_window_t requestor);

    xcb_connection_t* m_connection;
    AtomTable& m_atoms;
    const xcb_window_t m_window;
    const xcb_atom_t m_selection;
    QList<Offer> m_offers; ///< Oldest first; the last one is the present content.
    SelectionReaders m_readers;
    std::list<Outgoing> m_outgoing;
};

} // namespace quorvel
