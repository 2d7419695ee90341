#pragma once

#include "clipboard/ClipboardHistory.h"
#include "paste/EditBeforePaste.h"
#include "paste/PasteDelivery.h"
#include "paste/PasteOption.h"

#include <QObject>

namespace quorvel {

/// Pastes clips and texts in every way there is, and counts their use.
class PasteEngine final : public QObject {
    Q_OBJECT

public:
    PasteEngine(PasteDelivery& delivery, ClipboardHistory& history);

    /// Pastes an entry, of the history or of a smart folder alone, and counts the use: with every
    /// form in which it was captured, or its text alone as plain text; a picture has none, and
    /// nothing happens. To be edited first, a text is handed on by `editRequested`, and its use
    /// counts when it is pasted; a picture is pasted as it is.
    void pasteEntry(const RecentClipboardEntry& entry, PasteOption option = PasteOption::normal);

    /// Pastes a text alone. `used` is called when it is pasted: at once, or after the edit.
    void pasteText(const QString& text, PasteOption option = PasteOption::normal,
                   const std::function<void()>& used = {});

    /// Pastes in the place of what was selected in the target, and keeps the clipboard.
    void replaceSelection(const QString& text, const std::optional<FocusTarget>& target);

    /// Pastes what has become of a text that was to be edited.
    void pasteEdited(const EditRequest& request, const EditBeforePasteState& state);

signals:
    /// A paste was asked for: counted whether or not its keys arrive.
    void pasted(const QString& text);

    /// The user wants to change the text first. `pasteEdited` goes on; if it is not called,
    /// nothing has happened.
    void editRequested(const quorvel::EditRequest& request);

private:
    void requestEdit(const RecentClipboardEntry& entry);
    void paste(const QList<ClipboardSnapshotItem>& items, PasteOption option);

    PasteDelivery& m_delivery;
    ClipboardHistory& m_history;
};

/// What goes to the pasteboard for an entry: its captured forms with the text among them, or its
/// text or picture when the forms are not kept any more.
QList<ClipboardSnapshotItem> pasteboardItems(const RecentClipboardEntry& entry);

} // namespace quorvel
