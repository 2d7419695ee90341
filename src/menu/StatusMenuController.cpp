#include "menu/StatusMenuController.h"

#include "menu/MenuBuild.h"
#include "menu/StatusMenu.h"
#include "menu/Submenus.h"

namespace quorvel {

StatusMenuController::StatusMenuController(Parts parts)
    : m_content(parts.content)
    , m_history(parts.history)
    , m_watcher(parts.watcher)
    , m_renderer(parts.renderer)
    , m_mainQueue(parts.mainQueue)
    , m_hints(std::move(parts.hints))
    , m_timings(m_content.preferences, m_content.clock)
    , m_filler(m_mainQueue, m_timings, [this](const QString& identifier) {
        return submenuItems(identifier, MenuBuild(m_content, m_state));
    }) {
    connect(&m_history, &ClipboardHistory::changed, this, &StatusMenuController::rebuild);
    connect(&parts.snippets, &SnippetStore::changed, this, &StatusMenuController::rebuild);
    connect(&m_filler, &SubmenuFiller::filled, &m_renderer, &MenuRenderer::fillSubmenu);
    connect(&m_renderer, &MenuRenderer::submenuOpening, &m_filler, &SubmenuFiller::fill);
    connect(&m_renderer, &MenuRenderer::searchChanged, this, &StatusMenuController::search);
    connect(&m_renderer, &MenuRenderer::answerNeeded, this, &StatusMenuController::rebuildAtOnce);
    connect(&m_renderer, &MenuRenderer::modifiersChanged, this,
            &StatusMenuController::followModifiers);
    connect(&m_renderer, &MenuRenderer::ending, this,
            [this](const QString& reason) { m_timings.reached(u"ending[%1]"_qs.arg(reason)); });
    connect(&m_renderer, &MenuRenderer::closed, this, &StatusMenuController::menuDidClose);
    connect(&m_renderer, &MenuRenderer::chosen, this, &StatusMenuController::chosen);
    connect(&m_renderer, &MenuRenderer::painted, this, [this] { m_timings.painted(); });
}

void StatusMenuController::toggle(MenuVariant variant) {
    const bool wasOpenLikeThis = m_rootMenuIsOpen && m_state.variant == variant;
    if (m_rootMenuIsOpen)
        close();
    if (!wasOpenLikeThis)
        open(variant);
}

void StatusMenuController::open(MenuVariant variant) {
    if (m_rootMenuIsOpen)
        close();
    m_state.variant = variant;
    menuWillOpen();
    const QList<MenuItem> tree = build();
    m_renderer.open(tree, form());
    m_filler.scheduleWarmUp(tree);
    m_modifierFlagsTimer = m_mainQueue.every(
        modifierFlagsInterval, this, [this] { followModifiers(m_renderer.currentModifiers()); });
}

void StatusMenuController::close() {
    m_renderer.close();
}

void StatusMenuController::warmUp() {
    if (!m_rootMenuIsOpen)
        m_renderer.warmUp(statusMenu(m_content, m_state), form());
}

MenuForm StatusMenuController::form() const {
    return m_content.preferences.isOn(keys::customMenuEnabled) ? MenuForm::popover
                                                               : MenuForm::native;
}

void StatusMenuController::menuWillOpen() {
    emit aboutToOpen();
    m_timings.opened();
    m_rootMenuIsOpen = true;
    m_filler.beginGeneration();
    m_watcher.tick();
    m_history.dropExpiredPins();
    const Modifiers held = m_renderer.currentModifiers();
    m_state.isOptionMode = held.testFlag(Modifier::option);
    m_state.isControlHeld = held.testFlag(Modifier::control);
    m_state.searchQuery.clear();
    m_state.hint = m_hints.choose();
}

void StatusMenuController::menuDidClose() {
    m_timings.closed();
    m_rootMenuIsOpen = false;
    m_filler.beginGeneration();
    m_modifierFlagsTimer.cancel();
    m_pendingRebuild.cancel();
    m_state = {.problem = m_state.problem};
}

/// Several changes of one moment are shown together.
void StatusMenuController::rebuild() {
    if (m_rootMenuIsOpen && !m_pendingRebuild.isPending())
        m_pendingRebuild = m_mainQueue.after({}, this, [this] { rebuildNow(); });
}

/// Keys that come together are all dealt with before the next turn.
void StatusMenuController::rebuildAtOnce() {
    if (!m_pendingRebuild.isPending())
        return;
    m_pendingRebuild.cancel();
    rebuildNow();
}

void StatusMenuController::rebuildNow() {
    m_history.dropExpiredPins();
    m_filler.forget();
    if (m_state.hint.isEmpty()) // They may have been switched on meanwhile.
        m_state.hint = m_hints.draw();
    const QList<MenuItem> tree = build();
    m_renderer.update(tree);
    if (m_state.searchQuery.isEmpty()) // What is found changes with the next letter.
        m_filler.scheduleWarmUp(tree);
}

QList<MenuItem> StatusMenuController::build() {
    m_promisesEditing = m_state.isControlHeld;
    return statusMenu(m_content, m_state);
}

void StatusMenuController::search(const QString& query) {
    if (std::exchange(m_state.searchQuery, query) == query)
        return;
    m_timings.reached(QStringLiteral("search"));
    rebuild();
}

/// Control changes what the titles promise only when the menu is built, and they promise it no
/// longer than it is held: it may have been for a key such as the one that pastes a query.
void StatusMenuController::followModifiers(Modifiers held) {
    const bool isOptionHeld = held.testFlag(Modifier::option);
    m_state.isControlHeld = held.testFlag(Modifier::control);
    const bool isSwitched = std::exchange(m_state.isOptionMode, isOptionHeld) != isOptionHeld;
    if (isSwitched && isOptionHeld)
        m_hints.countOptionModeUse();
    if (isSwitched || (m_promisesEditing && !m_state.isControlHeld))
        rebuild();
}

void StatusMenuController::setSaveProblem(const QString& problem) {
    m_state.problem = problem;
    rebuild();
}

void StatusMenuController::disableHintsSection() {
    m_hints.switchOff();
    m_state.hint.clear();
    rebuild();
}

} // namespace quorvel
