#pragma once

#include "paste/PasteOption.h"
#include "platform/Pasteboard.h"

#include <QString>

#include <array>
#include <functional>

namespace quorvel {

enum class EditCaseMode { original, lower, upper };

inline constexpr std::array<EditCaseMode, 3> editCaseModes{
    EditCaseMode::original, EditCaseMode::lower, EditCaseMode::upper};

/// What the user sets before a text is pasted.
struct EditBeforePasteState {
    QString text;
    EditCaseMode caseMode = EditCaseMode::original;
    bool trimCollapse = false;
    bool pasteAsPlainText = true;
    bool supportsRichPaste = false; ///< There are other forms than text, so there is a choice.

    bool operator==(const EditBeforePasteState&) const = default;
};

/// A text that is to be edited and then pasted.
struct EditRequest {
    QString text;
    QList<ClipboardSnapshotItem> items; ///< Every form of it; empty when there is only the text.
    PasteOption option = PasteOption::normal; ///< How it is pasted after that.
    std::function<void()> used;               ///< Told when it is pasted; never when cancelled.
};

/// Whether a clip has been captured in a form that says more than its text does.
bool hasRichForms(const QList<ClipboardSnapshotItem>& items);

/// What the editor starts with.
EditBeforePasteState editorState(const EditRequest& request);

/// The edited text as it is pasted.
QString resultText(const EditBeforePasteState& state);

/// What is pasted: every form of the original when nothing was changed and they were asked for,
/// the edited text alone otherwise.
QList<ClipboardSnapshotItem> resultItems(const EditRequest& request,
                                         const EditBeforePasteState& state);

} // namespace quorvel
