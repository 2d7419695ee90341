#include "platform/x11/X11KeyPoster.h"

#include <algorithm>

#include <xkbcommon/xkbcommon-keysyms.h>

namespace quorvel {

namespace {

using Steady = std::chrono::steady_clock;

constexpr std::chrono::milliseconds tidyInterval{50};

/// Where a key is that no layout has.
struct UsualKey {
    xkb_keysym_t symbol;
    xcb_keycode_t key;
};
constexpr UsualKey usualKeys[] = {{XKB_KEY_v, 55},
                                  {XKB_KEY_c, 54},
                                  {XKB_KEY_Insert, 118},
                                  {XKB_KEY_Left, 113},
                                  {XKB_KEY_Right, 114}};

} // namespace

struct X11KeyPoster::Job {
    Purpose purpose;
    std::optional<FocusTarget> target;
    Done done;
    CaretKeys caretKeys = CaretKeys::left;
    int times = 1;
    Steady::time_point focusEnd = {};
    std::optional<X11KeyTables> tables = {}; ///< From here on: set when the focus is right.
    Steady::time_point releaseEnd = {};
    PasteChord chord = {};
    xcb_window_t preparedFor = XCB_WINDOW_NONE;
};

X11KeyPoster::X11KeyPoster(X11Connection& connection, MainQueue& queue, HotKeyGuard& hotKeys,
                           Clipboard clipboard, KeyPostLimits limits)
    : m_connection(connection)
    , m_queue(queue)
    , m_hotKeys(hotKeys)
    , m_clipboard(std::move(clipboard))
    , m_limits(limits)
    , m_windows(connection)
    , m_keys(connection) {}

bool X11KeyPoster::isTrusted() const {
    return m_keys.isAvailable();
}

void X11KeyPoster::postPaste(const std::optional<FocusTarget>& target, Done done) {
    start({Purpose::paste, target, std::move(done)});
}

void X11KeyPoster::postCopy(const std::optional<FocusTarget>& target, Done done) {
    start({Purpose::copy, target, std::move(done)});
}

void X11KeyPoster::postCaretKeys(const std::optional<FocusTarget>& target, CaretKeys keys,
                                 int times, Done done) {
    start({Purpose::caret, target, std::move(done), keys, times});
}

void X11KeyPoster::start(Job job) {
    job.focusEnd = Steady::now() + m_limits.focus;
    advance(std::make_shared<Job>(std::move(job)));
}

void X11KeyPoster::advance(const JobHandle& job) {
    const bool isLate = Steady::now() >= job->focusEnd;
    const auto focus = rightFocus(*job);
    const auto isImpossible = [&] {
        return !prepare(*job, *focus) || (isLate && !m_clipboard.isSettled());
    };
    if (!isTrusted() || (focus && isImpossible()))
        finish(job, PostOutcome::unavailable);
    else if (!focus && isLate)
        finish(job, PostOutcome::focusElsewhere);
    else if (focus && isReady(*job) && post(*job, *focus))
        finish(job, PostOutcome::posted);
    else
        waitOn(job);
}

bool X11KeyPoster::prepare(Job& job, xcb_window_t focus) {
    if (job.tables && job.preparedFor == focus)
        return true;
    job.preparedFor = focus;
    const auto chord = chordOf(job, m_windows.classOf(m_windows.topWindow(focus)));
    if (!chord)
        return false;
    job.chord = *chord;
    if (job.purpose == Purpose::paste)
        prepareClipboard(job, focus);
    job.releaseEnd = Steady::now() + m_limits.release;
    job.tables = X11KeyTables::read(m_connection.xcb());
    m_connection.keepArrivedEvents();
    return job.tables.has_value();
}

std::optional<PasteChord> X11KeyPoster::chordOf(const Job& job, const WindowClass& windowClass) {
    switch (job.purpose) {
    case Purpose::paste:
        return pasteChordFor(windowClass);
    case Purpose::copy:
        return copyChordFor(windowClass);
    case Purpose::caret:
        return caretChordFor(windowClass, job.caretKeys);
    }
    return std::nullopt;
}

void X11KeyPoster::prepareClipboard(const Job& job, xcb_window_t focus) {
    if (job.chord.needsPrimary)
        m_clipboard.offerPrimary();
    m_clipboard.expectReader(focus);
}

bool X11KeyPoster::isReady(const Job& job) const {
    return m_clipboard.isSettled() &&
           (Steady::now() >= job.releaseEnd || !userHoldsKeys(*job.tables));
}

void X11KeyPoster::waitOn(const JobHandle& job) {
    m_queue.after(m_limits.interval, &m_receiver, [this, job] { advance(job); });
}

void X11KeyPoster::finish(const JobHandle& job, PostOutcome outcome) {
    using std::chrono_literals::operator""ms;
    m_queue.after(0ms, &m_receiver, [job, outcome] { job->done(outcome); });
}

std::optional<xcb_window_t> X11KeyPoster::rightFocus(const Job& job) const {
    const xcb_window_t focus = m_windows.inputFocus();
    if (focus == XCB_WINDOW_NONE)
        return std::nullopt;
    const auto& target = job.target;
    const bool right = !target || m_windows.holdsFocus(xcb_window_t(target->window),
                                                       xcb_window_t(target->element), focus);
    return right ? std::optional(focus) : std::nullopt;
}

bool X11KeyPoster::userHoldsKeys(const X11KeyTables& tables) const {
    return m_hotKeys.heldKey() || !m_keys.heldAmong(tables.heldModifierKeys()).isEmpty();
}

bool X11KeyPoster::post(const Job& job, xcb_window_t focus) {
    const X11KeyTables& tables = *job.tables;
    const KeyStroke stroke = {keyOf(job.chord, tables), tables.keysOf(job.chord.modifiers),
                              job.times};
    QList<xcb_keycode_t> otherKeys = {stroke.key};
    if (const auto held = m_hotKeys.heldKey())
        otherKeys.append(*held);
    m_hotKeys.standAside(stroke.key, tables.maskFor(job.chord.modifiers).value_or(0));
    const bool posted = m_keys.post(stroke, tables.heldModifierKeys(), otherKeys,
                                    [&] { return rightFocus(job) == focus; });
    m_hotKeys.standBack();
    tidyUp();
    return posted;
}

void X11KeyPoster::tidyUp() {
    m_tidying.cancel();
    if (!m_keys.tidyUp())
        m_tidying = m_queue.after(tidyInterval, &m_receiver, [this] { tidyUp(); });
}

xcb_keycode_t X11KeyPoster::keyOf(const PasteChord& chord, const X11KeyTables& tables) {
    const auto* usual =
        std::find_if(std::begin(usualKeys), std::end(usualKeys),
                     [&](const UsualKey& candidate) { return candidate.symbol == chord.key; });
    return tables.keyForSymbol(chord.key).value_or(usual->key);
}

} // namespace quorvel
