#include "platform/x11/SelectionReaders.h"

#include "platform/x11/XcbReply.h"

#include <algorithm>

namespace quorvel {

namespace {

/// For how long after the keys a program may begin to ask for what was pasted.
constexpr auto patience = std::chrono::seconds(3);

/// A program asks for types and content several times; after so long without a question it has all.
constexpr auto silence = std::chrono::milliseconds(300);

} // namespace

void SelectionReaders::expect(quint32 client, xcb_timestamp_t offeredSince,
                              std::function<void()> fetched) {
    m_readers.remove_if([client](const Reader& reader) {
        return reader.client == client && reader.hasFetched; // It has what it was told to paste.
    });
    m_readers.push_back({client, offeredSince, Clock::now() + patience, std::move(fetched)});
}

std::optional<xcb_timestamp_t> SelectionReaders::offeredTo(quint32 client,
                                                           xcb_timestamp_t time) const {
    const bool isTimed = time != XCB_CURRENT_TIME;
    std::optional<xcb_timestamp_t> found;
    for (const Reader& reader : m_readers) {
        if (reader.client != client || (isTimed && isLater(reader.offeredSince, time)))
            continue;
        found = reader.offeredSince;
        if (!isTimed)
            break;
    }
    return found;
}

void SelectionReaders::served(quint32 client, xcb_timestamp_t offeredSince) {
    for (Reader& reader : m_readers)
        if (reader.client == client && reader.offeredSince == offeredSince) {
            reader.end = Clock::now() + silence;
            reader.hasFetched = true;
        }
}

bool SelectionReaders::isAwaited(xcb_timestamp_t offeredSince) const {
    return std::any_of(m_readers.begin(), m_readers.end(), [offeredSince](const Reader& reader) {
        return reader.offeredSince == offeredSince;
    });
}

std::optional<SelectionReaders::Clock::time_point> SelectionReaders::deadline() const {
    const auto first =
        std::min_element(m_readers.begin(), m_readers.end(),
                         [](const Reader& a, const Reader& b) { return a.end < b.end; });
    return first == m_readers.end() ? std::nullopt : std::optional(first->end);
}

void SelectionReaders::endDue() {
    end([now = Clock::now()](const Reader& reader) { return reader.end <= now; });
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
