#pragma once

#include "menu/StatusMenuController.h"
#include "paste/FocusTracker.h"
#include "paste/GlobalHotKeys.h"
#include "paste/PasteEngine.h"

#include <QMap>
#include <QObject>

namespace quorvel {

/// Carries out what the hot keys are for.
class HotKeyCommands final : public QObject {
    Q_OBJECT

public:
    struct Parts {
        GlobalHotKeys& hotKeys;
        StatusMenuController& menu;
        const MenuContent content;
        ClipboardHistory& history;
        PasteEngine& pasteEngine;
        FocusTracker& focus;
        KeyPoster& keyPoster;
    };
    using Handler = std::function<void()>;

    /// Answers what needs nobody else: the menu, plain text, the recent clips.
    explicit HotKeyCommands(const Parts& parts);

    /// Answers a configurable hot key from now on; an empty handler gives its keys back to the
    /// user.
    void setHandler(HotKeyId id, const Handler& handler);

signals:
    /// What came of keys that were passed on; a paste tells by its engine.
    void keysPosted(quorvel::PostOutcome outcome);

private:
    void run(HotKeyId id, Modifiers modifiersHeld);
    void pasteRecentClip(int position, Modifiers further);
    void pastePlainText();
    void passOn();

    const Parts m_parts;
    QMap<HotKeyId, Handler> m_handlers;
};

} // namespace quorvel
