#pragma once

#include <QtGlobal>

#include <chrono>
#include <functional>
#include <list>
#include <optional>
#include <set>

#include <xcb/xcb.h>

namespace quorvel {

/// The programs that were told to paste, and which content each of them is to get. Clipboard
/// thread only.
class SelectionReaders {
public:
    using Clock = std::chrono::steady_clock;

    struct Times {
        std::function<Clock::time_point()> now;

        /// How long ago the user pressed a key or a button, or moved the pointer.
        std::function<Clock::duration()> sinceUserInput;
    };

    /// What a program asks for: `content` is what it pastes, the rest is about it.
    struct Question {
        xcb_atom_t target;
        bool isContent;
        xcb_timestamp_t time;
    };

    explicit SelectionReaders(Times times);

    /// A program, by the bits that all its windows have in common, is to get what is offered since
    /// this time. `fetched` is called once, when it has that and asks no more; never when it does
    /// not ask.
    void expect(quint32 client, xcb_timestamp_t offeredSince, std::function<void()> fetched);

    /// Since when what this program asks for is offered; absent for one that is not expected (any
    /// more). Of several pastes, a question that bears a time belongs to the last one that was
    /// offered by then. Without one (XCB_CURRENT_TIME) they are served in their order: who asks
    /// anew for what it has got already has come to its next paste.
    std::optional<xcb_timestamp_t> offeredTo(quint32 client, const Question& question);

    /// That program has got an answer.
    void answered(quint32 client, xcb_timestamp_t offeredSince, const Question& question);

    bool isAwaited(xcb_timestamp_t offeredSince) const;

    /// Whether somebody was told to paste a moment ago and may be about to ask, or is asking.
    bool isAnyoneExpected() const { return deadline().has_value(); }

    /// When `endDue` has to be called; absent while nobody is expected.
    std::optional<Clock::time_point> deadline() const;

    /// Those who have what they want, or never asked, get from now on what everybody gets. Who
    /// never asked may hang, though: as long as the user touches nothing, a late question without
    /// a time can only be about the paste, and is still answered so.
    void endDue();
    void endAll();

private:
    struct Reader {
        quint32 client;
        xcb_timestamp_t offeredSince;
        Clock::time_point end;
        std::function<void()> fetched;
        std::set<xcb_atom_t> asked = {};
        bool hasFetched = false;
        bool isOverdue = false; ///< Its time is over and it has not asked.
    };

    Reader* lastOfferedBy(quint32 client, xcb_timestamp_t time);
    Reader* nextInOrder(quint32 client, xcb_atom_t target);
    bool mayStillAsk(const Reader& reader) const;
    void end(const std::function<bool(const Reader&)>& isOver);

    const Times m_times;
    std::list<Reader> m_readers; ///< In the order in which they were told.
};

} // namespace quorvel
