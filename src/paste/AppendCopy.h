#pragma once

#include "paste/SelectionTaker.h"

#include <QObject>
#include <QUuid>

namespace quorvel {

/// How adding the selection to the newest clip went.
struct AppendResult {
    SelectedTextResult::Outcome outcome = SelectedTextResult::Outcome::nothingSelected;
    QString added; ///< The selected text.
    QString whole; ///< What is on the clipboard now.
};

/// Adds the selected text of the program in front to the newest clip. The whole is a clip of its
/// own, which grows when more is added; what was copied before stays in the history.
class AppendCopy final : public QObject {
    Q_OBJECT

public:
    AppendCopy(SelectionTaker& selection, Pasteboard& pasteboard, PasteboardWatcher& watcher,
               ClipboardHistory& history);

    void append();

signals:
    void finished(const quorvel::AppendResult& result);

private:
    void take(const SelectedTextResult& selected);
    QString newestText() const;
    void dropGrownClip(const QString& text);

    SelectionTaker& m_selection;
    Pasteboard& m_pasteboard;
    PasteboardWatcher& m_watcher;
    ClipboardHistory& m_history;
    QUuid m_grown; ///< The clip that the last addition made.
};

} // namespace quorvel
