#include "paste/AppendCopy.h"

namespace quorvel {

AppendCopy::AppendCopy(SelectionTaker& selection, Pasteboard& pasteboard,
                       PasteboardWatcher& watcher, ClipboardHistory& history)
    : m_selection(selection)
    , m_pasteboard(pasteboard)
    , m_watcher(watcher)
    , m_history(history) {}

void AppendCopy::append() {
    m_selection.take([this](const SelectedTextResult& selected) { take(selected); });
}

void AppendCopy::take(const SelectedTextResult& selected) {
    if (selected.outcome != SelectedTextResult::Outcome::taken)
        return emit finished({selected.outcome, {}, {}});
    const QString before = newestText();
    const QString whole = before.isEmpty() ? selected.text : before + u'\n' + selected.text;
    m_pasteboard.write({textItem(whole)});
    m_watcher.noteChangeCount();
    dropGrownClip(before);
    m_watcher.capture();
    m_grown = m_history.recentClipboard().isEmpty() ? QUuid()
                                                    : m_history.recentClipboard().constFirst().id;
    emit finished({selected.outcome, selected.text, whole});
}

/// What is on the clipboard, else the newest clip: a secret on the clipboard is not read.
QString AppendCopy::newestText() const {
    const QString text = m_pasteboard.string();
    const auto& clips = m_history.recentClipboard();
    return text.isEmpty() && !clips.isEmpty() ? clips.constFirst().text : text;
}

/// The clip that the addition before has made becomes this one, unless the user keeps it.
void AppendCopy::dropGrownClip(const QString& text) {
    const RecentClipboardEntry* grown = m_history.entry(m_grown);
    if (grown && grown->text == text && !grown->pinned)
        m_history.remove(m_grown);
}

} // namespace quorvel
