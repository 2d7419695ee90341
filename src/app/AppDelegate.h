#pragma once

#include "app/Adapters.h"
#include "app/HotKeyCommands.h"
#include "app/LaunchStep.h"
#include "app/MenuCommands.h"
#include "app/UserMessages.h"
#include "clipboard/HistoryStore.h"
#include "clipboard/SmartFolderClipboard.h"
#include "control/ControlServer.h"
#include "control/InstanceLock.h"
#include "foundation/DataPaths.h"
#include "foundation/StringTable.h"
#include "menu/MenuPreparation.h"
#include "menu/StatusMenuController.h"
#include "paste/AppendCopy.h"
#include "paste/GlobalHotKeys.h"
#include "paste/PasteEngine.h"
#include "paste/layouts/LayoutRetyping.h"
#include "smart/SmartDetector.h"
#include "smart/masking/ShownTexts.h"
#include "snippets/SnippetStore.h"

#include <QObject>

namespace quorvel {

/// Owns everything that runs: makes one object for each concern, wires them, and starts and stops
/// them in a fixed order. Decides nothing else.
class AppDelegate final : public QObject {
    Q_OBJECT

public:
    struct Environment {
        DataPaths paths;
        const Clock& clock;
        MainQueue& mainQueue;
        BackgroundQueue& disk;
        StringTable strings;
        qint64 processIdentifier;
    };

    AppDelegate(Environment environment, const Adapters& adapters);
    ~AppDelegate() override;

    /// Runs the start, in order. False when another instance runs: it has been asked to show its
    /// menu, and this one must end.
    bool applicationDidFinishLaunching();

    /// Runs the end, in order. Harmless when called again.
    void applicationWillTerminate();

    const ClipboardHistory& history() const { return m_history; }
    SnippetStore& store() { return m_store; }

signals:
    /// A step of the start or the end is done.
    void stepDone(const QString& name);

    /// The user or another program wants this one to end.
    void quitRequested();

private:
    bool guardSingleInstance();
    void prepareFolder() const;
    void logAccessibilityTrust() const;
    QList<LaunchStep> launchSteps();
    QList<LaunchStep> terminationSteps();
    void runAll(const QList<LaunchStep>& steps);

    MenuContent menuContent() const;
    void wireMenu();
    void wireMenuCommands();
    void wirePaste();
    void wireTextTools();
    void followKeyboardLayouts();
    void wireStores();
    void wireControl();
    void wireMessages();
    void openGeneralSettings();
    void edit(const EditRequest& request);
    void reportSaveProblem();
    void setClosingKey();

    Environment m_environment;
    Adapters m_adapters;
    UserMessages m_messages;
    InstanceLock m_instanceLock;
    PreferenceStore m_preferenceStore;
    Preferences m_preferences;
    SnippetStore m_store;
    SmartPluginRegistry m_smartPluginRegistry;
    SmartDetector m_detector;
    ClipboardHistory m_history;
    SmartFolderClipboard m_smartFolders;
    ShownTexts m_shownTexts;
    SnippetRows m_snippetRows;
    HistoryStore m_historyStore;
    PasteboardWatcher m_watcher;
    FocusTracker m_focusTracker;
    ClipboardTurns m_clipboardTurns;
    PasteDelivery m_pasteDelivery;
    PasteEngine m_pasteEngine;
    GlobalHotKeys m_hotKeys;
    CopyTools m_copyTools;
    SelectionTaker m_selectionTaker;
    AppendCopy m_appendCopy;
    FolderSnippets m_folderSnippets;
    SearchTexts m_searchTexts;
    TextAnalyses m_textAnalyses;
    KeyboardLayoutVariants m_layoutVariants;
    LayoutCycle m_layoutCycle;
    LayoutRetyping m_layoutRetyping;
    StatusMenuController m_menu;
    MenuPreparation m_menuPreparation;
    ContextCommands m_contextCommands;
    MenuCommands m_menuCommands;
    HotKeyCommands m_hotKeyCommands;
    ControlServer m_control;
    bool m_running = false;
};

} // namespace quorvel
