#pragma once

#include <QtGlobal>

#include <chrono>
#include <functional>
#include <list>
#include <optional>

#include <xcb/xcb.h>

namespace quorvel {

/// The programs that were told to paste, and which content each of them is to get. Clipboard
/// thread only.
class SelectionReaders {
public:
    using Clock = std::chrono::steady_clock;

    /// A program, by the bits that all its windows have in common, is to get what is offered since
    /// this time. `fetched` is called once, when it has that and asks no more; never when it does
    /// not ask.
    void expect(quint32 client, xcb_timestamp_t offeredSince, std::function<void()> fetched);

    /// Since when what this program asks for is offered; absent for one that is not expected (any
    /// more). Of several pastes, a request that bears a time belongs to the last one that was
    /// offered by then; without one (XCB_CURRENT_TIME) they are served in their order.
    std::optional<xcb_timestamp_t> offeredTo(quint32 client, xcb_timestamp_t time) const;

    /// That program has got content.
    void served(quint32 client, xcb_timestamp_t offeredSince);

    bool isAwaited(xcb_timestamp_t offeredSince) const;
    bool isEmpty() const { return m_readers.empty(); }

    /// When `endDue` has to be called; absent while nobody is expected.
    std::optional<Clock::time_point> deadline() const;

    /// Those who have what they want, or never asked, get from now on what everybody gets.
    void endDue();
    void endAll();

private:
    struct Reader {
        quint32 client;
        xcb_timestamp_t offeredSince;
        Clock::time_point end;
        std::function<void()> fetched;
        bool hasFetched = false;
    };

    void end(const std::function<bool(const Reader&)>& isOver);

    std::list<Reader> m_readers; ///< In the order in which they were told.
};

} // namespace quorvel
