#include "menu/StatusMenuController.h"

#include "menu/StatusMenu.h"

namespace quorvel {

StatusMenuController::StatusMenuController(MenuContent content, ClipboardHistory& history,
                                           PasteboardWatcher& watcher, MenuRenderer& renderer)
    : m_content(content)
    , m_history(history)
    , m_watcher(watcher)
    , m_renderer(renderer)
    , m_timings(content.preferences, content.clock) {
    connect(&m_history, &ClipboardHistory::changed, this, &StatusMenuController::rebuild);
    connect(&m_renderer, &MenuRenderer::closed, this, &StatusMenuController::menuDidClose);
    connect(&m_renderer, &MenuRenderer::chosen, this, &StatusMenuController::act);
    connect(&m_renderer, &MenuRenderer::painted, this, [this] { m_timings.firstPaint(); });
}

void StatusMenuController::toggle(MenuVariant variant) {
    const bool wasOpenLikeThis = m_rootMenuIsOpen && m_currentMenuVariant == variant;
    if (m_rootMenuIsOpen)
        close();
    if (!wasOpenLikeThis)
        open(variant);
}

void StatusMenuController::open(MenuVariant variant) {
    if (m_rootMenuIsOpen)
        close();
    m_currentMenuVariant = variant;
    menuWillOpen();
    m_renderer.open(statusMenu(m_content, m_currentMenuVariant, m_saveProblem));
}

void StatusMenuController::close() {
    m_renderer.close();
}

void StatusMenuController::warmUp() {
    if (!m_rootMenuIsOpen)
        m_renderer.warmUp(statusMenu(m_content, MenuVariant::main, m_saveProblem));
}

void StatusMenuController::menuWillOpen() {
    m_timings.opened();
    emit aboutToOpen();
    m_watcher.tick();
    m_history.dropExpiredPins();
    m_rootMenuIsOpen = true;
}

void StatusMenuController::menuDidClose() {
    m_timings.closed();
    m_rootMenuIsOpen = false;
    m_currentMenuVariant = MenuVariant::main;
}

void StatusMenuController::rebuild() {
    if (!m_rootMenuIsOpen)
        return;
    m_history.dropExpiredPins();
    m_renderer.update(statusMenu(m_content, m_currentMenuVariant, m_saveProblem));
}

void StatusMenuController::setSaveProblem(const QString& problem) {
    m_saveProblem = problem;
    rebuild();
}

void StatusMenuController::act(const MenuChoice& choice) {
    switch (choice.action) {
    case MenuAction::pasteRecentSnippet:
        return emit pasteRecentSnippetChosen(QUuid(choice.representedObject), choice.modifiers);
    case MenuAction::openGeneralSettings:
        return emit openGeneralSettingsChosen();
    case MenuAction::quit:
        return emit quitChosen();
    default:
        return;
    }
}

} // namespace quorvel
