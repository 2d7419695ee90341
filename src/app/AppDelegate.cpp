#include "app/AppDelegate.h"

#include "app/ControlCommands.h"
#include "control/ControlClient.h"
#include "foundation/DataFolder.h"
#include "foundation/Log.h"

#include <QFileInfo>
#include <QRandomGenerator>

#include <functional>

namespace quorvel {

namespace {

/// After the start, when the session's own rush is over.
constexpr std::chrono::milliseconds menuWarmUpDelay{300};

} // namespace

AppDelegate::AppDelegate(Environment environment, const Adapters& adapters)
    : m_environment(std::move(environment))
    , m_adapters(adapters)
    , m_messages(m_adapters.desktop, m_adapters.statusItem, m_environment.strings)
    , m_instanceLock(m_environment.paths.instanceLock)
    , m_preferenceStore(m_environment.paths.preferencesFile, m_environment.clock,
                        m_environment.disk)
    , m_preferences(m_preferenceStore)
    , m_store(m_environment.paths.snippetsFile, m_environment.clock, m_environment.mainQueue,
              m_environment.disk)
    , m_detector(m_smartPluginRegistry, m_adapters.textServices.dataDetector(),
                 m_adapters.textServices.nameTagger())
    , m_history(m_preferences, m_environment.clock)
    , m_smartFolders(m_smartPluginRegistry, m_history, m_preferences, m_environment.clock)
    , m_historyStore(m_environment.paths.historyFile, m_environment.paths.journalFile, m_history,
                     m_environment.clock, m_environment.mainQueue, m_environment.disk)
    , m_watcher(m_adapters.pasteboard, m_adapters.workspace, m_detector, m_history,
                m_environment.clock, m_environment.mainQueue)
    , m_focusTracker(m_adapters.workspace, m_environment.mainQueue, m_environment.processIdentifier)
    , m_pasteDelivery(m_adapters.pasteboard, m_watcher, m_focusTracker, m_adapters.workspace,
                      m_adapters.keyPoster, m_clipboardTurns, m_environment.mainQueue)
    , m_pasteEngine(m_pasteDelivery, m_history)
    , m_hotKeys(m_adapters.hotKeys, m_preferences, m_preferenceStore)
    , m_copyTools(m_adapters.pasteboard, m_watcher)
    , m_selectionTaker(m_adapters.selectedText, m_adapters.pasteboard, m_watcher, m_focusTracker,
                       m_clipboardTurns)
    , m_appendCopy(m_selectionTaker, m_adapters.pasteboard, m_watcher, m_history)
    , m_folderSnippets(m_store, m_detector, m_smartPluginRegistry)
    , m_searchTexts(m_preferences)
    , m_textAnalyses(m_adapters.textServices.dataDetector())
    , m_layoutVariants(m_adapters.keyboardLayouts)
    , m_layoutCycle(m_layoutVariants, m_preferences)
    , m_layoutRetyping({m_selectionTaker, m_layoutCycle, m_adapters.keyboardLayouts, m_pasteEngine,
                        m_adapters.pasteboard, m_history})
    , m_menu({.content = menuContent(),
              .history = m_history,
              .snippets = m_store,
              .watcher = m_watcher,
              .renderer = m_adapters.menu,
              .mainQueue = m_environment.mainQueue,
              .hints = {m_preferences, m_environment.strings,
                        [](int below) { return QRandomGenerator::global()->bounded(below); }}})
    , m_menuPreparation(menuContent(), m_folderSnippets, m_history, m_store,
                        m_environment.mainQueue)
    , m_contextCommands({m_pasteEngine, m_adapters.desktop, m_adapters.terminal,
                         m_adapters.keyboardLayouts, m_environment.strings})
    , m_menuCommands({m_history, m_smartFolders, m_store, m_adapters.pasteboard, m_pasteEngine,
                      m_copyTools, m_contextCommands})
    , m_hotKeyCommands({m_hotKeys, m_menu, menuContent(), m_history, m_pasteEngine, m_focusTracker,
                        m_adapters.keyPoster}) {
    wireMenu();
    wireMenuCommands();
    wirePaste();
    wireTextTools();
    wireStores();
    wireControl();
    wireMessages();
}

AppDelegate::~AppDelegate() = default;

bool AppDelegate::applicationDidFinishLaunching() {
    if (!guardSingleInstance())
        return false;
    m_running = true;
    runAll(launchSteps());
    logLine(QStringLiteral("[Quorvel Launch] ready"));
    return true;
}

QList<LaunchStep> AppDelegate::launchSteps() {
    const auto& strings = m_environment.strings;
    return {
        {QStringLiteral("preferences"),
         [this] {
             m_preferenceStore.load();
             m_adapters.appearance.apply(themePreset(m_preferences));
         }},
        {QStringLiteral("accessibility trust"), [this] { logAccessibilityTrust(); }},
        {QStringLiteral("status item"),
         [&] {
             m_adapters.statusItem.setIcon(menuBarIcon(m_preferences));
             m_adapters.statusItem.show(strings.text(QStringLiteral("app.tooltip")));
         }},
        {QStringLiteral("data folder"), [this] { prepareFolder(); }},
        {QStringLiteral("snippets"), [this] { m_store.load(); }},
        {QStringLiteral("history"),
         [this] {
             m_historyStore.load();
             m_smartFolders.rebuild();
         }},
        {QStringLiteral("pasteboard watcher"), [this] { m_watcher.start(); }},
        {QStringLiteral("focus tracker"), [this] { m_focusTracker.start(); }},
        {QStringLiteral("hot keys"), [this] { m_hotKeys.registerAll(); }},
        {QStringLiteral("menu"),
         [this] {
             m_menuPreparation.start();
             m_environment.mainQueue.after(menuWarmUpDelay, &m_menu, [this] { m_menu.warmUp(); });
         }},
        {QStringLiteral("control socket"),
         [this] {
             const QString problem = m_control.listen(m_environment.paths.controlSocket);
             if (!problem.isEmpty())
                 logLine(QStringLiteral("[Quorvel Control] cannot listen: %1").arg(problem));
         }},
    };
}

void AppDelegate::applicationWillTerminate() {
    if (!std::exchange(m_running, false))
        return;
    runAll(terminationSteps());
}

QList<LaunchStep> AppDelegate::terminationSteps() {
    return {
        {QStringLiteral("control socket"), [this] { m_control.close(); }},
        {QStringLiteral("pasteboard watcher and focus tracker"),
         [this] {
             m_watcher.stop();
             m_focusTracker.stop();
         }},
        {QStringLiteral("history"), [this] { m_historyStore.writeNow(); }},
        {QStringLiteral("snippets"), [this] { m_store.saveNow(); }},
        {QStringLiteral("menu"),
         [this] {
             m_menu.close();
             m_adapters.textEditor.close();
         }},
        {QStringLiteral("hot keys"), [this] { m_hotKeys.unregisterAll(); }},
    };
}

void AppDelegate::runAll(const QList<LaunchStep>& steps) {
    for (const LaunchStep& step : steps) {
        step.run();
        emit stepDone(step.name);
    }
}

bool AppDelegate::guardSingleInstance() {
    makePrivateFolder(m_environment.paths.runtimeFolder);
    if (m_instanceLock.acquire() != InstanceLock::Outcome::heldByAnother)
        return true;
    sendControlRequest(m_environment.paths.controlSocket, {QStringLiteral("show"), {}});
    return false;
}

void AppDelegate::prepareFolder() const {
    const DataPaths& paths = m_environment.paths;
    prepareDataFolder(QFileInfo(paths.snippetsFile).path(), paths.formerDataFolder);
}

void AppDelegate::logAccessibilityTrust() const {
    logLine(QStringLiteral("[Quorvel Permissions] accessibility=%1")
                .arg(m_adapters.keyPoster.isTrusted() ? QStringLiteral("granted")
                                                      : QStringLiteral("denied")));
}

MenuContent AppDelegate::menuContent() const {
    return {m_history,
            m_smartFolders,
            m_store,
            m_folderSnippets,
            m_adapters.pasteboard,
            m_preferences,
            m_environment.strings,
            m_environment.clock,
            m_shownTexts,
            m_snippetRows,
            m_searchTexts,
            m_textAnalyses,
            m_layoutVariants};
}

void AppDelegate::wireMenu() {
    connect(&m_adapters.statusItem, &TrayIcon::activated, this,
            [this] { m_menu.toggle(MenuVariant::main); });
    connect(&m_adapters.statusItem, &TrayIcon::settingsRequested, this,
            &AppDelegate::openGeneralSettings);
    connect(&m_adapters.statusItem, &TrayIcon::quitRequested, this, &AppDelegate::quitRequested);
    connect(&m_hotKeys, &GlobalHotKeys::registered, this, &AppDelegate::setClosingKey);
    connect(&m_menu, &StatusMenuController::aboutToOpen, &m_focusTracker, &FocusTracker::refresh);
}

void AppDelegate::wireMenuCommands() {
    connect(&m_menu, &StatusMenuController::chosen, &m_menuCommands, &MenuCommands::run);
    connect(&m_menuCommands, &MenuCommands::disableHintsSectionChosen, &m_menu,
            &StatusMenuController::disableHintsSection);
    connect(&m_menuCommands, &MenuCommands::openGeneralSettingsChosen, this,
            &AppDelegate::openGeneralSettings);
    connect(&m_menuCommands, &MenuCommands::quitChosen, this, &AppDelegate::quitRequested);
}

void AppDelegate::wireStores() {
    connect(&m_historyStore, &HistoryStore::saveProblemChanged, this,
            &AppDelegate::reportSaveProblem);
    connect(&m_store, &SnippetStore::saveProblemChanged, this, &AppDelegate::reportSaveProblem);
}

void AppDelegate::wireTextTools() {
    m_hotKeyCommands.setHandler(HotKeyId::appendSelection, [this] {
        logLine(QStringLiteral("[Quorvel AppendCopy] hotkey received"));
        m_appendCopy.append();
    });
    connect(&m_adapters.keyboardLayouts, &KeyboardLayouts::configurationChanged, this,
            &AppDelegate::followKeyboardLayouts, Qt::QueuedConnection);
    // Reading the layouts would hold up the start.
    m_environment.mainQueue.after(std::chrono::milliseconds(300), this,
                                  [this] { followKeyboardLayouts(); });
}

/// With a single layout there is nothing to retype, and the keys stay with the programs.
void AppDelegate::followKeyboardLayouts() {
    HotKeyCommands::Handler handler;
    if (m_adapters.keyboardLayouts.maps().size() > 1)
        handler = [this] { m_layoutRetyping.retype(); };
    m_hotKeyCommands.setHandler(HotKeyId::cycleKeyboardLayout, handler);
}

void AppDelegate::wirePaste() {
    connect(&m_pasteEngine, &PasteEngine::editRequested, this, &AppDelegate::edit);
}

void AppDelegate::wireMessages() {
    const auto tell = [this](auto message) { return std::bind_front(message, &m_messages); };
    connect(&m_appendCopy, &AppendCopy::finished, this, tell(&UserMessages::appended));
    connect(&m_layoutRetyping, &LayoutRetyping::noSelection, this, tell(&UserMessages::notRetyped));
    connect(&m_layoutRetyping, &LayoutRetyping::impossible, this,
            tell(&UserMessages::nothingToRetype));
    connect(&m_pasteDelivery, &PasteDelivery::keysPosted, this, tell(&UserMessages::posted));
    connect(&m_hotKeyCommands, &HotKeyCommands::keysPosted, this, tell(&UserMessages::posted));
    connect(&m_pasteDelivery, &PasteDelivery::permissionMissing, this,
            tell(&UserMessages::pastePermissionMissing));
    connect(&m_menuCommands, &MenuCommands::snippetRefused, this,
            tell(&UserMessages::snippetRefused));
    connect(&m_store, &SnippetStore::creationNotSaved, this, tell(&UserMessages::creationNotSaved));
}

void AppDelegate::wireControl() {
    addControlCommands(m_control, {
                                      .environment = m_environment,
                                      .adapters = m_adapters,
                                      .preferences = m_preferenceStore,
                                      .history = m_history,
                                      .historyStore = m_historyStore,
                                      .store = m_store,
                                      .smartFolders = m_smartFolders,
                                      .watcher = m_watcher,
                                      .focus = m_focusTracker,
                                      .pasteDelivery = m_pasteDelivery,
                                      .pasteEngine = m_pasteEngine,
                                      .copyTools = m_copyTools,
                                      .appendCopy = m_appendCopy,
                                      .hotKeys = m_hotKeys,
                                      .menu = m_menu,
                                      .content = menuContent(),
                                      .quit = [this] { emit quitRequested(); },
                                  });
}

void AppDelegate::openGeneralSettings() {
    m_preferenceStore.ensureFile();
    m_adapters.desktop.openFile(m_preferenceStore.path());
}

void AppDelegate::edit(const EditRequest& request) {
    m_adapters.textEditor.present(
        editorState(request),
        [self = QPointer(this), request](const std::optional<EditBeforePasteState>& edited) {
            if (self && edited)
                self->m_pasteEngine.pasteEdited(request, *edited);
        });
}

void AppDelegate::setClosingKey() {
    for (const HotKeyState& state : m_hotKeys.states())
        if (state.id == HotKeyId::openMenu && state.result == HotKeyState::Result::bound)
            return m_adapters.menu.setClosingKey(state.position, state.shortcut.modifiers());
    m_adapters.menu.setClosingKey(0, {});
}

void AppDelegate::reportSaveProblem() {
    m_menu.setSaveProblem(m_historyStore.saveProblem().isEmpty() ? m_store.saveProblem()
                                                                 : m_historyStore.saveProblem());
}

} // namespace quorvel
