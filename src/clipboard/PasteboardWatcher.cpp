#include "clipboard/PasteboardWatcher.h"

#include <algorithm>

namespace quorvel {

PasteboardWatcher::PasteboardWatcher(Pasteboard& pasteboard, const Workspace& workspace,
                                     const SmartDetector& detector, ClipboardHistory& history,
                                     const Clock& clock, MainQueue& mainQueue)
    : m_pasteboard(pasteboard)
    , m_workspace(workspace)
    , m_detector(detector)
    , m_history(history)
    , m_clock(clock)
    , m_mainQueue(mainQueue)
    , m_pasteboardChangeCount(pasteboard.changeCount()) {}

void PasteboardWatcher::start() {
    stop();
    if (m_pasteboard.announcesChanges()) {
        m_announcements =
            connect(&m_pasteboard, &Pasteboard::changed, this, &PasteboardWatcher::tick);
        m_lateArrivals =
            connect(&m_pasteboard, &Pasteboard::arrivedLate, this, &PasteboardWatcher::captureLate);
        // What was copied since we were made has been announced to nobody.
        m_clipboardTimer = m_mainQueue.after({}, this, [this] { tick(); });
    } else {
        m_clipboardTimer = m_mainQueue.every(pollInterval, this, [this] { tick(); });
    }
}

void PasteboardWatcher::stop() {
    disconnect(m_announcements);
    disconnect(m_lateArrivals);
    m_clipboardTimer.cancel();
    m_afterSuppression.cancel();
}

void PasteboardWatcher::tick() {
    const qint64 count = m_pasteboard.changeCount();
    if (m_ignoredPasteboardChangeCounts.remove(count)) {
        m_pasteboardChangeCount = count;
        return;
    }
    if (m_clock.now() < m_suppressClipboardCaptureUntil)
        return;
    if (count != m_pasteboardChangeCount)
        capture();
}

void PasteboardWatcher::capture() {
    noteChangeCount();
    insert({m_pasteboard.items(), m_pasteboard.string(), m_pasteboard.imagePng()});
}

void PasteboardWatcher::captureLate(const PasteboardContent& content) {
    if (m_clock.now() >= m_suppressClipboardCaptureUntil)
        insert(content);
}

void PasteboardWatcher::insert(const PasteboardContent& content) {
    if (content.text.isEmpty() && content.imagePng.isEmpty())
        return;
    ClipboardCapture capture;
    capture.text = content.text;
    capture.payloadItems = content.items;
    capture.imagePNGData = content.imagePng;
    if (!capture.imagePNGData.isEmpty())
        capture.autoTags.append(ClipboardAutoTag::image);
    capture.autoTags += m_detector.detectAutoTags(capture.text);
    if (const auto source = m_workspace.frontmostApplication()) {
        capture.sourceAppName = source->name;
        capture.sourceAppBundleIdentifier = source->bundleIdentifier;
    }
    m_history.insert(capture);
}

void PasteboardWatcher::markOwnWrite(qint64 changeCount) {
    m_ignoredPasteboardChangeCounts.insert(changeCount);
    while (m_ignoredPasteboardChangeCounts.size() > mostIgnoredCounts)
        m_ignoredPasteboardChangeCounts.erase(std::min_element(
            m_ignoredPasteboardChangeCounts.cbegin(), m_ignoredPasteboardChangeCounts.cend()));
}

void PasteboardWatcher::suppressCapture(std::chrono::milliseconds duration) {
    m_suppressClipboardCaptureUntil = m_clock.now() + duration;
    noteChangeCount();
    m_afterSuppression.cancel();
    // Where changes are announced no poll comes by afterwards to pick up what was held back.
    if (m_pasteboard.announcesChanges())
        m_afterSuppression = m_mainQueue.after(duration, this, [this] {
            m_suppressClipboardCaptureUntil = Date::distantPast();
            tick();
        });
}

void PasteboardWatcher::noteChangeCount() {
    m_pasteboardChangeCount = m_pasteboard.changeCount();
}

} // namespace quorvel
