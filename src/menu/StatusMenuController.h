#pragma once

#include "clipboard/PasteboardWatcher.h"
#include "foundation/MainQueue.h"
#include "menu/MenuContent.h"
#include "menu/MenuRenderer.h"
#include "menu/MenuTimings.h"
#include "menu/MenuVariant.h"

#include <QObject>
#include <QUuid>

namespace quorvel {

/// The life of the status menu: opens it with fresh content, rebuilds it in place when the content
/// changes, tidies up when it closes, and tells what was chosen.
class StatusMenuController final : public QObject {
    Q_OBJECT

public:
    StatusMenuController(MenuContent content, ClipboardHistory& history, PasteboardWatcher& watcher,
                         MenuRenderer& renderer);

    /// Opens the menu, or closes it when it is open in this flavour already.
    void toggle(MenuVariant variant);
    void open(MenuVariant variant);
    void close();

    /// Prepares the first opening while there is time.
    void warmUp();

    /// Builds the tree anew; shown at once when the menu is open.
    void rebuild();

    void setSaveProblem(const QString& problem);

    bool rootMenuIsOpen() const { return m_rootMenuIsOpen; }
    MenuVariant currentMenuVariant() const { return m_currentMenuVariant; }

signals:
    void aboutToOpen();
    void pasteRecentSnippetChosen(const QUuid& id, quorvel::Modifiers modifiers);
    void openGeneralSettingsChosen();
    void quitChosen();

private:
    void menuWillOpen();
    void menuDidClose();
    void act(const MenuChoice& choice);

    const MenuContent m_content;
    ClipboardHistory& m_history;
    PasteboardWatcher& m_watcher;
    MenuRenderer& m_renderer;
    MenuTimings m_timings;
    bool m_rootMenuIsOpen = false;
    MenuVariant m_currentMenuVariant = MenuVariant::main;
    QString m_saveProblem;
};

} // namespace quorvel
