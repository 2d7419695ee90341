#include "support/raw/Target.h"

#include "support/raw/Options.h"

#include <algorithm>
#include <cstdint>

namespace quorvel::raw {

const char* const targetUsage = R"(Usage: quorvel_raw_target [OPTION...]
Opens a window. When Control+V is pressed in it, prints "key", asks for the text of the clipboard
and prints "pasted TEXT" when it has come.
  --class NAME     RawTarget unless told
  --delay MS       asks so long after the key
  --timeless       asks without a time stamp
  --selected TEXT  Control+Insert copies this and prints "copied"
  --giving MS      waits before each answer about what was copied
  --die-on N       ends itself on the Nth key
)";

namespace {

constexpr xcb_keycode_t copyKey = 118;
constexpr xcb_keycode_t pasteKey = 55;
constexpr std::uint16_t side = 200;

const OptionTable<TargetOptions>& table() {
    static const OptionTable<TargetOptions> known{
        .flags = {{"--timeless", [](auto& o, const auto&) { o.isTimeless = true; }}},
        .withValue =
            {
                {"--class", [](auto& o, const auto& v) { o.windowClass = v; }},
                {"--delay",
                 [](auto& o, const auto& v) { o.delay = std::chrono::milliseconds(number(v)); }},
                {"--selected", [](auto& o, const auto& v) { o.selected = v; }},
                {"--giving",
                 [](auto& o, const auto& v) { o.giving = std::chrono::milliseconds(number(v)); }},
                {"--die-on",
                 [](auto& o, const auto& v) { o.keysUntilExit = static_cast<int>(number(v)); }},
            },
        .other = [](auto&, const auto&) { fail(targetUsage); },
    };
    return known;
}

} // namespace

TargetOptions targetOptions(const std::vector<std::string>& arguments) {
    return readOptions(arguments, table());
}

Target::Target(TargetOptions options)
    : m_options(std::move(options)) {
    createWindow();
    say("ready");
}

void Target::createWindow() {
    xcb_connection_t* connection = m_display.connection();
    m_window = xcb_generate_id(connection);
    const auto* screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
    const std::uint32_t values[] = {screen->white_pixel,
                                    XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_PROPERTY_CHANGE};
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, m_window, screen->root, 0, 0, side, side, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                      XCB_CW_BACK_PIXEL | XCB_CW_EVENT_MASK, values);
    const std::string both = m_options.windowClass + '\0' + m_options.windowClass + '\0';
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, m_window, XCB_ATOM_WM_CLASS,
                        XCB_ATOM_STRING, 8, static_cast<std::uint32_t>(both.size()), both.data());
    xcb_map_window(connection, m_window);
}

bool Target::isOver() const {
    return m_options.keysUntilExit != 0 && m_keys >= m_options.keysUntilExit;
}

void Target::run() {
    while (!isOver()) {
        m_display.wait(millisecondsToNext());
        while (const Event event = m_display.nextEvent())
            handle(*event);
        askWhatIsDue();
        giveWhatIsDue();
    }
}

int Target::millisecondsToNext() const {
    auto next = Clock::time_point::max();
    if (!m_questions.empty())
        next = std::min(next, m_questions.front().due);
    if (!m_answers.empty())
        next = std::min(next, m_answers.front().due);
    if (next == Clock::time_point::max())
        return -1;
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(next - Clock::now());
    return static_cast<int>(std::max<std::int64_t>(0, left.count()));
}

void Target::askWhatIsDue() {
    while (!m_questions.empty() && m_questions.front().due <= Clock::now()) {
        // A property of its own for each answer: several may be on their way.
        const std::string property = "RAW_PASTED_" + std::to_string(m_asked++);
        xcb_convert_selection(m_display.connection(), m_window, m_display.atom("CLIPBOARD"),
                              m_display.atom("UTF8_STRING"), m_display.atom(property),
                              m_questions.front().time);
        xcb_flush(m_display.connection());
        m_questions.pop_front();
    }
}

void Target::handle(const xcb_generic_event_t& event) {
    const int type = event.response_type & 0x7f;
    if (type == XCB_KEY_PRESS)
        keyPressed(reinterpret_cast<const xcb_key_press_event_t&>(event));
    else if (type == XCB_SELECTION_NOTIFY)
        answered(reinterpret_cast<const xcb_selection_notify_event_t&>(event));
    else if (type == XCB_SELECTION_REQUEST)
        m_answers.push_back({Clock::now() + m_options.giving,
                             reinterpret_cast<const xcb_selection_request_event_t&>(event)});
}

void Target::keyPressed(const xcb_key_press_event_t& press) {
    const unsigned modifiers = press.state & ~unsigned(XCB_MOD_MASK_LOCK | XCB_MOD_MASK_2);
    if ((modifiers & 0xff) != XCB_MOD_MASK_CONTROL)
        return;
    if (press.detail == copyKey && !m_options.selected.empty())
        return copy(press.time);
    if (press.detail != pasteKey)
        return;
    say("key");
    ++m_keys;
    m_questions.push_back({Clock::now() + m_options.delay,
                           m_options.isTimeless ? xcb_timestamp_t(XCB_CURRENT_TIME) : press.time});
}

void Target::copy(xcb_timestamp_t time) {
    xcb_set_selection_owner(m_display.connection(), m_window, m_display.atom("CLIPBOARD"), time);
    xcb_flush(m_display.connection());
    say("copied");
}

void Target::giveWhatIsDue() {
    while (!m_answers.empty() && m_answers.front().due <= Clock::now()) {
        give(m_answers.front().request);
        m_answers.pop_front();
    }
}

/// It tells no types, as some plain programs do, and gives text.
void Target::give(const xcb_selection_request_event_t& request) {
    const xcb_atom_t utf8 = m_display.atom("UTF8_STRING");
    xcb_selection_notify_event_t notice{};
    notice.response_type = XCB_SELECTION_NOTIFY;
    notice.time = request.time;
    notice.requestor = request.requestor;
    notice.selection = request.selection;
    notice.target = request.target;
    notice.property = request.target == utf8 ? request.property : xcb_atom_t(XCB_ATOM_NONE);
    if (notice.property != XCB_ATOM_NONE)
        xcb_change_property(m_display.connection(), XCB_PROP_MODE_REPLACE, request.requestor,
                            request.property, utf8, 8,
                            static_cast<std::uint32_t>(m_options.selected.size()),
                            m_options.selected.data());
    xcb_send_event(m_display.connection(), 0, request.requestor, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char*>(&notice));
    xcb_flush(m_display.connection());
}

void Target::answered(const xcb_selection_notify_event_t& answer) {
    if (answer.property == XCB_ATOM_NONE)
        return say("refused");
    constexpr std::uint32_t everything = UINT32_MAX / 4;
    const Owned<xcb_get_property_reply_t> reply(xcb_get_property_reply(
        m_display.connection(),
        xcb_get_property(m_display.connection(), 1, m_window, answer.property,
                         XCB_GET_PROPERTY_TYPE_ANY, 0, everything),
        nullptr));
    if (!reply)
        fail("the display has gone");
    say("pasted " +
        std::string(static_cast<const char*>(xcb_get_property_value(reply.get())),
                    static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))));
}

} // namespace quorvel::raw

int main(int count, char** arguments) {
    using namespace quorvel::raw;
    try {
        Target(targetOptions({arguments + 1, arguments + count})).run();
        return EXIT_SUCCESS;
    } catch (const std::exception& error) {
        fail(error.what());
    }
}
