#pragma once

#include "clipboard/PasteboardWatcher.h"
#include "paste/ClipboardTurns.h"
#include "paste/FocusTracker.h"
#include "platform/SelectedText.h"

namespace quorvel {

/// Gets the text that is selected in the program the user is working in, and leaves no trace: what
/// it makes that program copy is not recorded, and the pasteboard is as it was before.
class SelectionTaker {
public:
    SelectionTaker(SelectedText& selectedText, Pasteboard& pasteboard, PasteboardWatcher& watcher,
                   FocusTracker& focus, ClipboardTurns& turns);

    /// Of the program that has the focus now, when the clipboard is free. False, and `done` never
    /// called, while a selection is being taken already. What `done` does belongs to the same turn
    /// with the clipboard.
    bool take(const SelectedText::Done& done);

    /// The same with a text that was typed just before the caret.
    bool takeTyped(const QString& text, const SelectedText::Done& done);

    /// The program that the last selection was asked of.
    const std::optional<FocusTarget>& source() const { return m_source; }

    /// From the question on, what is copied belongs to the answer, which may come late from a
    /// program that is slow to give what it has copied.
    static constexpr std::chrono::seconds suppression{20};

private:
    using Ask = std::function<void(const SelectedText::Done& done)>;

    bool take(const Ask& ask, const SelectedText::Done& done);
    void begin(const Ask& ask, const SelectedText::Done& done);
    void settle(const QList<ClipboardSnapshotItem>& before, qint64 changeCount);

    SelectedText& m_selectedText;
    Pasteboard& m_pasteboard;
    PasteboardWatcher& m_watcher;
    FocusTracker& m_focus;
    ClipboardTurns& m_turns;
    std::optional<FocusTarget> m_source;
    bool m_isTaking = false;
    QObject m_receiver; ///< Ends the waiting with us.
};

} // namespace quorvel
