#pragma once

#include "app/ContextCommands.h"
#include "app/preferences/Preferences.h"
#include "clipboard/SmartFolderClipboard.h"
#include "menu/MenuRenderer.h"
#include "menu/RowSource.h"
#include "paste/CopyTools.h"
#include "paste/PasteEngine.h"
#include "snippets/SnippetStore.h"

#include <QObject>

namespace quorvel {

/// Carries out what is chosen in the menu.
class MenuCommands final : public QObject {
    Q_OBJECT

public:
    struct Parts {
        ClipboardHistory& history;
        const SmartFolderClipboard& smartFolders;
        SnippetStore& snippets;
        Pasteboard& pasteboard;
        PasteEngine& pasteEngine;
        CopyTools& copyTools;
        ContextCommands& contextCommands;
    };

    explicit MenuCommands(const Parts& parts);

    void run(const MenuChoice& choice);

signals:
    void disableHintsSectionChosen();
    void openGeneralSettingsChosen();
    void quitChosen();

    /// A snippet could not be made of what is on the clipboard.
    void snippetRefused(quorvel::SnippetProblem problem);

private:
    using Operation = void (MenuCommands::*)(const MenuChoice&);
    struct Command {
        MenuAction action;
        Operation operation;
    };
    static const QList<Command>& commands();

    void paste(const MenuChoice& choice);
    void pasteWithMode(const MenuChoice& choice);
    void paste(const RowSource& source, PasteOption option);
    void addFromClipboard(const MenuChoice& choice);
    void copyTool(const MenuChoice& choice);
    void togglePin(const MenuChoice& choice);
    void pinForHour(const MenuChoice& choice);
    void pinForDay(const MenuChoice& choice);
    void useContext(const MenuChoice& choice);

    const Parts m_parts;
};

} // namespace quorvel
