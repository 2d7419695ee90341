#pragma once

#include "support/raw/RawDisplay.h"

#include <chrono>
#include <deque>
#include <string>
#include <vector>

namespace quorvel::raw {

struct TargetOptions {
    std::string windowClass = "RawTarget";
    std::chrono::milliseconds delay{0};  ///< From the paste keys to the question.
    bool isTimeless = false;             ///< The questions bear no time stamp.
    std::string selected;                ///< What Control+Insert copies; empty for nothing.
    std::chrono::milliseconds giving{0}; ///< Before each answer about what it has copied.
    int keysUntilExit = 0;               ///< Ends itself on so many paste keys; 0 for never.
};

extern const char* const targetUsage;

TargetOptions targetOptions(const std::vector<std::string>& arguments);

/// A program with one window that pastes text on Control+V, as slowly as it is told.
class Target {
public:
    explicit Target(TargetOptions options);

    /// Returns when it was told to end itself.
    void run();

private:
    using Clock = std::chrono::steady_clock;
    struct Question {
        Clock::time_point due;
        xcb_timestamp_t time;
    };

    struct Answer {
        Clock::time_point due;
        xcb_selection_request_event_t request;
    };

    void createWindow();
    bool isOver() const;
    void askWhatIsDue();
    int millisecondsToNext() const;
    void handle(const xcb_generic_event_t& event);
    void keyPressed(const xcb_key_press_event_t& press);
    void copy(xcb_timestamp_t time);
    void giveWhatIsDue();
    void give(const xcb_selection_request_event_t& request);
    void answered(const xcb_selection_notify_event_t& answer);

    const TargetOptions m_options;
    RawDisplay m_display;
    xcb_window_t m_window = XCB_WINDOW_NONE;
    std::deque<Question> m_questions;
    std::deque<Answer> m_answers;
    int m_keys = 0;
    int m_asked = 0;
};

} // namespace quorvel::raw
