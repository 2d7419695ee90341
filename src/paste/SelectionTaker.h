#pragma once

#include "clipboard/PasteboardWatcher.h"
#include "paste/FocusTracker.h"
#include "platform/SelectedText.h"

namespace quorvel {

/// Gets the text that is selected in the program the user is working in, and leaves no trace: what
/// it makes that program copy is not recorded, and the pasteboard is as it was before.
class SelectionTaker {
public:
    SelectionTaker(SelectedText& selectedText, Pasteboard& pasteboard, PasteboardWatcher& watcher,
                   FocusTracker& focus);

    /// False, and `done` never called, while a selection is being taken already.
    bool take(SelectedText::Done done);

    /// From the question on, what is copied belongs to the answer.
    static constexpr std::chrono::milliseconds suppression{2000};

private:
    void settle(const QList<ClipboardSnapshotItem>& before, qint64 changeCount);

    SelectedText& m_selectedText;
    Pasteboard& m_pasteboard;
    PasteboardWatcher& m_watcher;
    FocusTracker& m_focus;
    bool m_isTaking = false;
    QObject m_receiver; ///< Ends the waiting with us.
};

} // namespace quorvel
