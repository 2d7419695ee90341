#pragma once

#include "paste/PasteEngine.h"
#include "paste/SelectionTaker.h"
#include "paste/layouts/LayoutCycle.h"

#include <QObject>

namespace quorvel {

/// Puts what was typed in the wrong keyboard layout right: the selected text, else the last one
/// that was copied, is pasted as it would be in the next layout, and that layout is switched on.
/// The last one that was copied is not meant when the user goes on with what this has just pasted.
class LayoutRetyping final : public QObject {
    Q_OBJECT

public:
    struct Parts {
        SelectionTaker& selection;
        LayoutCycle& cycle;
        KeyboardLayouts& layouts;
        PasteEngine& pasteEngine;
        const Pasteboard& pasteboard;
        const ClipboardHistory& history;
    };

    explicit LayoutRetyping(const Parts& parts)
        : m_parts(parts) {}

    void retype();

signals:
    /// No configured layout makes another text of it, or there is no text.
    void impossible();

    /// There is no selection to go on with.
    void noSelection(quorvel::SelectedTextResult::Outcome outcome);

private:
    void retype(const SelectedTextResult& selected);
    void retype(const QString& text);
    bool isGoingOn() const;
    QString lastCopied() const;

    const Parts m_parts;
    std::optional<FocusTarget> m_lastTarget; ///< Of the last paste.
    QString m_lastCopied;                    ///< At that time.
};

} // namespace quorvel
