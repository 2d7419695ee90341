#include "platform/x11/SelectionReaders.h"

#include "platform/x11/XcbReply.h"

#include <algorithm>

namespace quorvel {

namespace {

/// For how long after the keys a program may begin to ask for what was pasted.
constexpr auto patience = std::chrono::seconds(3);

/// The same for one that may hang, while nothing else can have made it ask.
constexpr auto patienceWithTheHung = std::chrono::minutes(1);

/// A program asks for types and content several times; after so long without a question it has all.
constexpr auto silence = std::chrono::milliseconds(300);

} // namespace

SelectionReaders::SelectionReaders(Times times)
    : m_times(std::move(times)) {}

void SelectionReaders::expect(quint32 client, xcb_timestamp_t offeredSince,
                              std::function<void()> fetched) {
    m_readers.remove_if([client](const Reader& reader) {
        return reader.client == client && reader.hasFetched; // It has what it was told to paste.
    });
    m_readers.push_back({client, offeredSince, m_times.now() + patience, std::move(fetched)});
}

std::optional<xcb_timestamp_t> SelectionReaders::offeredTo(quint32 client,
                                                           const Question& question) {
    const Reader* reader = question.time == XCB_CURRENT_TIME ? nextInOrder(client, question.target)
                                                             : lastOfferedBy(client, question.time);
    return reader ? std::optional(reader->offeredSince) : std::nullopt;
}

/// The time of the question tells when the user, or we, pressed the keys.
SelectionReaders::Reader* SelectionReaders::lastOfferedBy(quint32 client, xcb_timestamp_t time) {
    Reader* found = nullptr;
    for (Reader& reader : m_readers)
        if (reader.client == client && !reader.isOverdue && !isLater(reader.offeredSince, time))
            found = &reader;
    return found;
}

SelectionReaders::Reader* SelectionReaders::nextInOrder(quint32 client, xcb_atom_t target) {
    Reader* first = nullptr;
    for (Reader& reader : m_readers) {
        if (reader.client != client || !mayStillAsk(reader))
            continue;
        if (!first)
            first = &reader;
        else if (first->hasFetched && first->asked.contains(target))
            return &reader;
    }
    return first;
}

bool SelectionReaders::mayStillAsk(const Reader& reader) const {
    return !reader.isOverdue || m_times.now() - reader.end < m_times.sinceUserInput();
}

/// Those that were told before it have had their turn.
void SelectionReaders::answered(quint32 client, xcb_timestamp_t offeredSince,
                                const Question& question) {
    const auto current =
        std::find_if(m_readers.begin(), m_readers.end(), [&](const Reader& reader) {
            return reader.client == client && reader.offeredSince == offeredSince;
        });
    if (current == m_readers.end())
        return;
    current->asked.insert(question.target);
    if (question.isContent) {
        current->end = m_times.now() + silence;
        current->hasFetched = true;
        current->isOverdue = false;
    }
    end([client, &current, isBefore = true](const Reader& reader) mutable {
        isBefore = isBefore && &reader != &*current;
        return isBefore && reader.client == client && reader.hasFetched;
    });
}

bool SelectionReaders::isAwaited(xcb_timestamp_t offeredSince) const {
    return std::any_of(m_readers.begin(), m_readers.end(), [offeredSince](const Reader& reader) {
        return reader.offeredSince == offeredSince;
    });
}

std::optional<SelectionReaders::Clock::time_point> SelectionReaders::deadline() const {
    std::optional<Clock::time_point> first;
    for (const Reader& reader : m_readers)
        if (!reader.isOverdue)
            first = first ? std::min(*first, reader.end) : reader.end;
    return first;
}

void SelectionReaders::endDue() {
    const auto now = m_times.now();
    for (Reader& reader : m_readers)
        reader.isOverdue = reader.end <= now && !reader.hasFetched;
    end([now](const Reader& reader) {
        return reader.hasFetched ? reader.end <= now : reader.end + patienceWithTheHung <= now;
    });
}

void SelectionReaders::endAll() {
    end([](const Reader&) { return true; });
}

void SelectionReaders::end(const std::function<bool(const Reader&)>& isOver) {
    m_readers.remove_if([&isOver](const Reader& reader) {
        const bool isOut = isOver(reader);
        if (isOut && reader.hasFetched)
            reader.fetched();
        return isOut;
    });
}

} // namespace quorvel
