#include "paste/SelectionTaker.h"

#include <QPointer>

namespace quorvel {

SelectionTaker::SelectionTaker(SelectedText& selectedText, Pasteboard& pasteboard,
                               PasteboardWatcher& watcher, FocusTracker& focus,
                               ClipboardTurns& turns)
    : m_selectedText(selectedText)
    , m_pasteboard(pasteboard)
    , m_watcher(watcher)
    , m_focus(focus)
    , m_turns(turns) {}

bool SelectionTaker::take(const SelectedText::Done& done) {
    return take([this](const auto& answer) { m_selectedText.take(m_source, answer); }, done);
}

bool SelectionTaker::takeTyped(const QString& text, const SelectedText::Done& done) {
    return take(
        [this, text](const auto& answer) { m_selectedText.takeTyped(m_source, text, answer); },
        done);
}

bool SelectionTaker::take(const Ask& ask, const SelectedText::Done& done) {
    if (std::exchange(m_isTaking, true))
        return false;
    m_focus.refresh();
    m_source = m_focus.target();
    m_turns.ask([this, receiver = QPointer(&m_receiver), ask, done] {
        if (receiver)
            begin(ask, done);
    });
    return true;
}

void SelectionTaker::begin(const Ask& ask, const SelectedText::Done& done) {
    m_watcher.tick(); // What was copied until now is the user's own.
    m_watcher.suppressCapture(suppression);
    const auto settled =
        [this, receiver = QPointer(&m_receiver), done, before = m_pasteboard.items(),
         changeCount = m_pasteboard.changeCount()](const SelectedTextResult& result) {
            if (!receiver)
                return;
            m_isTaking = false;
            settle(before, changeCount);
            done(result);
            m_turns.end();
        };
    ask(settled);
}

void SelectionTaker::settle(const QList<ClipboardSnapshotItem>& before, qint64 changeCount) {
    if (m_pasteboard.changeCount() != changeCount)
        m_watcher.markOwnWrite(m_pasteboard.write(before));
    m_watcher.suppressCapture(std::chrono::milliseconds(0));
}

} // namespace quorvel
