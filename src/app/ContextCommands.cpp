#include "app/ContextCommands.h"

#include "paste/ContextPastePayload.h"

#include <algorithm>
#include <array>

namespace quorvel {

namespace {

/// What is opened, and what is said when that fails.
struct Opening {
    MenuAction action;
    const char* title;
    const char* message;
};

constexpr std::array openings{
    Opening{MenuAction::openRecentURL, "error.openUrl.title", "error.openUrl.message"},
    Opening{MenuAction::openRecentJiraIssue, "error.openUrl.title", "error.openUrl.message"},
    Opening{MenuAction::openRecentPullRequest, "error.openUrl.title", "error.openUrl.message"},
    Opening{MenuAction::composeEmail, "error.composeEmail.title", "error.composeEmail.message"},
    Opening{MenuAction::callRecentPhoneNumber, "error.callNumber.title",
            "error.callNumber.message"},
};

const Opening* openingFor(MenuAction action) {
    const auto found =
        std::find_if(openings.begin(), openings.end(),
                     [action](const Opening& opening) { return opening.action == action; });
    return found == openings.end() ? nullptr : &*found;
}

/// As RFC 3966 has it, which programs for calls on this desktop understand.
QUrl urlFor(const MenuChoice& choice) {
    return choice.action == MenuAction::callRecentPhoneNumber
               ? QUrl(QStringLiteral("tel:") + choice.representedObject)
               : QUrl(choice.representedObject);
}

const char* messageKey(TerminalProblem problem) {
    switch (problem) {
    case TerminalProblem::unusableCommand:
        return "error.terminal.unusableCommand";
    case TerminalProblem::noTerminal:
        return "error.terminal.noTerminal";
    case TerminalProblem::noHelper:
        return "error.terminal.noHelper";
    case TerminalProblem::noCommandFile:
        return "error.terminal.noCommandFile";
    case TerminalProblem::notStarted:
    case TerminalProblem::none:
        return "error.terminal.notStarted";
    }
    Q_UNREACHABLE();
}

} // namespace

void ContextCommands::run(const MenuChoice& choice) {
    switch (choice.action) {
    case MenuAction::pasteContextValue:
        return paste(choice.representedObject);
    case MenuAction::openTerminalCommand:
    case MenuAction::runTerminalCommand:
        return useTerminal(choice);
    default:
        return open(choice);
    }
}

void ContextCommands::paste(const QString& payload) {
    const auto chosen = ContextPastePayload::fromText(payload);
    if (!chosen)
        return;
    m_parts.pasteEngine.pasteText(chosen->value);
    if (chosen->targetKeyboardLayoutID) // In it, the user goes on typing.
        m_parts.layouts.activate(*chosen->targetKeyboardLayoutID);
}

void ContextCommands::open(const MenuChoice& choice) {
    const Opening* opening = openingFor(choice.action);
    if (opening && !m_parts.desktop.openUrl(urlFor(choice)))
        tell(opening->title, m_parts.strings.text(QString::fromLatin1(opening->message)));
}

void ContextCommands::useTerminal(const MenuChoice& choice) {
    const QString& command = choice.representedObject;
    const TerminalResult result = choice.action == MenuAction::runTerminalCommand
                                      ? m_parts.terminal.run(command)
                                      : m_parts.terminal.type(command);
    if (result.isOk())
        return;
    const QString key = QString::fromLatin1(messageKey(result.problem));
    tell("error.terminal.title", result.detail.isEmpty()
                                     ? m_parts.strings.text(key)
                                     : m_parts.strings.format(key, result.detail));
}

void ContextCommands::tell(const char* title, const QString& message) const {
    m_parts.desktop.showMessage(m_parts.strings.text(QString::fromLatin1(title)), message);
}

} // namespace quorvel
