#include "app/MenuCommands.h"

namespace quorvel {

using namespace std::chrono_literals;

MenuCommands::MenuCommands(const Parts& parts)
    : m_parts(parts) {}

const QList<MenuCommands::Command>& MenuCommands::commands() {
    static const QList<Command> table{
        {MenuAction::pasteRecentSnippet, &MenuCommands::paste},
        {MenuAction::pasteRootSnippet, &MenuCommands::paste},
        {MenuAction::pasteGroupSnippet, &MenuCommands::paste},
        {MenuAction::pasteRecentSnippetWithMode, &MenuCommands::pasteWithMode},
        {MenuAction::pasteRootSnippetWithMode, &MenuCommands::pasteWithMode},
        {MenuAction::pasteGroupSnippetWithMode, &MenuCommands::pasteWithMode},
        {MenuAction::addFromClipboard, &MenuCommands::addFromClipboard},
        {MenuAction::addFromClipboardToGroup, &MenuCommands::addFromClipboard},
        {MenuAction::copyClipboardAsPlainText, &MenuCommands::copyTool},
        {MenuAction::copyClipboardTrimAndCollapse, &MenuCommands::copyTool},
        {MenuAction::copyClipboardUppercase, &MenuCommands::copyTool},
        {MenuAction::copyClipboardLowercase, &MenuCommands::copyTool},
        {MenuAction::copyClipboardTitleCase, &MenuCommands::copyTool},
        {MenuAction::togglePinRecentSnippet, &MenuCommands::togglePin},
        {MenuAction::pinRecentSnippetForHour, &MenuCommands::pinForHour},
        {MenuAction::pinRecentSnippetForDay, &MenuCommands::pinForDay},
        {MenuAction::pasteContextValue, &MenuCommands::useContext},
        {MenuAction::openRecentURL, &MenuCommands::useContext},
        {MenuAction::openRecentJiraIssue, &MenuCommands::useContext},
        {MenuAction::openRecentPullRequest, &MenuCommands::useContext},
        {MenuAction::composeEmail, &MenuCommands::useContext},
        {MenuAction::callRecentPhoneNumber, &MenuCommands::useContext},
        {MenuAction::openTerminalCommand, &MenuCommands::useContext},
        {MenuAction::runTerminalCommand, &MenuCommands::useContext},
    };
    return table;
}

void MenuCommands::run(const MenuChoice& choice) {
    switch (choice.action) {
    case MenuAction::disableHintsSection:
        return emit disableHintsSectionChosen();
    case MenuAction::openGeneralSettings:
        return emit openGeneralSettingsChosen();
    case MenuAction::quit:
        return emit quitChosen();
    default:
        break;
    }
    for (const Command& command : commands())
        if (command.action == choice.action)
            return (this->*command.operation)(choice);
}

void MenuCommands::paste(const MenuChoice& choice) {
    const bool isEdited = choice.modifiers.testFlag(Modifier::control);
    paste(rowSource(choice.representedObject),
          isEdited ? PasteOption::withEdit : PasteOption::normal);
}

void MenuCommands::pasteWithMode(const MenuChoice& choice) {
    if (const auto chosen = rowSourceWithMode(choice.representedObject))
        paste(chosen->source, chosen->option);
}

void MenuCommands::paste(const RowSource& source, PasteOption option) {
    if (const RecentClipboardEntry* entry = m_parts.smartFolders.entry(source.id))
        return m_parts.pasteEngine.pasteEntry(*entry, option);
    const Snippet* snippet = m_parts.snippets.snippet(source.id);
    if (!snippet)
        return;
    SnippetStore& snippets = m_parts.snippets;
    m_parts.pasteEngine.pasteText(
        snippet->text, option, [&snippets, id = source.id] { snippets.incrementUsageCount(id); });
}

/// To the group that the choice names, or to the root.
void MenuCommands::addFromClipboard(const MenuChoice& choice) {
    const QUuid group = QUuid::fromString(choice.representedObject);
    const SnippetResult result = m_parts.snippets.addFromClipboard(
        m_parts.pasteboard.string(), group.isNull() ? std::nullopt : std::optional(group));
    if (!result.isOk())
        emit snippetRefused(*result.problem);
}

void MenuCommands::copyTool(const MenuChoice& choice) {
    switch (choice.action) {
    case MenuAction::copyClipboardTrimAndCollapse:
        return m_parts.copyTools.copyClipboardTrimAndCollapse();
    case MenuAction::copyClipboardUppercase:
        return m_parts.copyTools.copyClipboardUppercase();
    case MenuAction::copyClipboardLowercase:
        return m_parts.copyTools.copyClipboardLowercase();
    case MenuAction::copyClipboardTitleCase:
        return m_parts.copyTools.copyClipboardTitleCase();
    default:
        return m_parts.copyTools.copyClipboardAsPlainText();
    }
}

void MenuCommands::togglePin(const MenuChoice& choice) {
    m_parts.history.togglePin(rowSource(choice.representedObject).id);
}

void MenuCommands::pinForHour(const MenuChoice& choice) {
    m_parts.history.pinFor(rowSource(choice.representedObject).id, 1h);
}

void MenuCommands::pinForDay(const MenuChoice& choice) {
    m_parts.history.pinFor(rowSource(choice.representedObject).id, 24h);
}

void MenuCommands::useContext(const MenuChoice& choice) {
    m_parts.contextCommands.run(choice);
}

} // namespace quorvel
