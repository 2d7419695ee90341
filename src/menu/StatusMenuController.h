#pragma once

#include "clipboard/PasteboardWatcher.h"
#include "foundation/MainQueue.h"
#include "menu/MenuContent.h"
#include "menu/MenuHints.h"
#include "menu/MenuRenderer.h"
#include "menu/MenuTimings.h"
#include "menu/SubmenuFiller.h"

#include <QObject>

namespace quorvel {

/// The life of the status menu: opens it with fresh content, rebuilds it in place when content,
/// search or option mode change, fills its submenus, tidies up when it closes, and tells what was
/// chosen.
class StatusMenuController final : public QObject {
    Q_OBJECT

public:
    struct Parts {
        MenuContent content;
        ClipboardHistory& history;
        const SnippetStore& snippets;
        PasteboardWatcher& watcher;
        MenuRenderer& renderer;
        MainQueue& mainQueue;
        MenuHints hints;
    };

    explicit StatusMenuController(Parts parts);

    /// Opens the menu, or closes it when it is open in this flavour already.
    void toggle(MenuVariant variant);
    void open(MenuVariant variant);
    void close();

    /// Prepares the first opening while there is time.
    void warmUp();

    /// Builds the tree anew, on the next turn of the main loop; nothing while the menu is closed.
    void rebuild();

    void setSaveProblem(const QString& problem);

    /// No hints from now on.
    void disableHintsSection();

    bool rootMenuIsOpen() const { return m_rootMenuIsOpen; }
    MenuVariant currentMenuVariant() const { return m_state.variant; }
    bool isOptionModeActiveInOpenMenu() const { return m_state.isOptionMode; }

    /// How often the modifier keys are looked at while the menu is open: a key that goes up while
    /// another program has the keyboard is not announced.
    static constexpr std::chrono::milliseconds modifierFlagsInterval{200};

signals:
    void aboutToOpen();
    void chosen(const quorvel::MenuChoice& choice);

private:
    MenuForm form() const;
    QList<MenuItem> build();
    void menuWillOpen();
    void menuDidClose();
    void rebuildNow();
    void rebuildAtOnce();
    void search(const QString& query);
    void followModifiers(Modifiers held);

    const MenuContent m_content;
    ClipboardHistory& m_history;
    PasteboardWatcher& m_watcher;
    MenuRenderer& m_renderer;
    MainQueue& m_mainQueue;
    MenuHints m_hints;
    MenuTimings m_timings;
    SubmenuFiller m_filler;
    MenuState m_state;
    bool m_rootMenuIsOpen = false;
    bool m_promisesEditing = false; ///< What is shown was built while Control was held.
    WorkItem m_pendingRebuild;
    WorkItem m_modifierFlagsTimer;
};

} // namespace quorvel
