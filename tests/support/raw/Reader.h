#pragma once

#include "support/raw/RawDisplay.h"

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace quorvel::raw {

struct ReaderOptions {
    std::string selection = "CLIPBOARD";
    std::vector<std::string> targets;
    std::optional<xcb_timestamp_t> time; ///< Of the requests; the server's present time if absent.
    bool multiple = false;               ///< All targets in one request.
    std::chrono::milliseconds patience{5000};
};

extern const char* const readerUsage;

ReaderOptions readerOptions(const std::vector<std::string>& arguments);

/// Asks the owner of a selection for some targets and prints what comes.
class Reader {
public:
    explicit Reader(ReaderOptions options);

    /// Whether every target was answered or refused in time.
    bool run();

private:
    enum class State { waiting, incremental, received, refused, timedOut };
    struct Request {
        std::string target;
        xcb_atom_t property;
        State state = State::waiting;
        bool inPieces = false;
        xcb_atom_t type = XCB_ATOM_NONE;
        int format = 0;
        std::string bytes;
    };

    void ask();
    void askForAllAtOnce(xcb_timestamp_t time);
    void collect();
    void handle(const xcb_generic_event_t& event);
    void notified(const xcb_selection_notify_event_t& event);
    void multipleAnswered();
    void takeFirst(Request& request);
    void takePiece(Request& request);
    Owned<xcb_get_property_reply_t> takeProperty(xcb_atom_t property);
    bool isDone() const;
    void print(const Request& request);
    std::string readable(const Request& request);

    const ReaderOptions m_options;
    RawDisplay m_display;
    std::vector<Request> m_requests;
};

} // namespace quorvel::raw
