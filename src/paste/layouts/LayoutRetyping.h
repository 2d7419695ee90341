#pragma once

#include "paste/PasteEngine.h"
#include "paste/SelectionTaker.h"
#include "paste/layouts/LayoutCycle.h"

#include <QObject>

namespace quorvel {

/// Puts what was typed in the wrong keyboard layout right: the selected text, else the last one
/// that was copied, is pasted as it would be in the next layout, and that layout is switched on.
/// With nothing selected after such a paste, the pasted text itself is what the user goes on with.
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
    void goOn();
    bool isGoingOn() const;
    QString lastCopied() const;

    const Parts m_parts;
    std::optional<FocusTarget> m_lastTarget; ///< Of the last paste.
    QString m_lastValue;                     ///< What it has typed.
    QString m_lastCopied;                    ///< At that time.
};

} // namespace quorvel
