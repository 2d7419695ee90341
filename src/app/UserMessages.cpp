#include "app/UserMessages.h"

#include "app/AppendNotice.h"
#include "foundation/Log.h"

namespace quorvel {

void UserMessages::appended(const AppendResult& result) {
    m_desktop.showNotice(appendNotice(result, m_strings));
}

void UserMessages::notRetyped(SelectedTextResult::Outcome outcome) {
    m_desktop.showNotice(appendNotice({outcome, {}, {}}, m_strings));
}

void UserMessages::nothingToRetype() {
    m_desktop.showNotice({QStringLiteral("keyboard"), text("layouts.nothingToRetype"),
                          text("layouts.nothingToRetype.advice")});
}

void UserMessages::posted(PostOutcome outcome) {
    if (outcome == PostOutcome::posted)
        return;
    logLine(QStringLiteral("[Quorvel Paste] no keys sent: %1")
                .arg(outcome == PostOutcome::focusElsewhere
                         ? QStringLiteral("the target lost the focus")
                         : QStringLiteral("keys cannot be posted")));
    m_statusItem.notify(text("paste.notDelivered.title"), text("paste.notDelivered.message"));
}

void UserMessages::pastePermissionMissing() {
    const QStringList sentences{text("error.pastePermission.messagePrefix"),
                                text("error.pastePermission.needsAccessibility"),
                                text("error.pastePermission.messageSuffix")};
    m_desktop.showMessage(text("error.pastePermission.title"), sentences.join(u' '));
}

void UserMessages::snippetRefused(SnippetProblem problem) {
    const bool isGroupMissing = problem == SnippetProblem::noSuchGroup;
    m_desktop.showMessage(text("error.createSnippet.refused"),
                          isGroupMissing ? text("error.createSnippet.noSuchGroup")
                                         : text("error.createSnippet.blank"));
}

void UserMessages::creationNotSaved(SnippetCreation creation, const QString& reason) {
    const bool isGroup = creation == SnippetCreation::group;
    const QString message =
        isGroup ? text("error.createGroup.message") : text("error.createSnippet.message");
    m_desktop.showMessage(isGroup ? text("error.createGroup.title")
                                  : text("error.createSnippet.title"),
                          message.arg(reason));
}

} // namespace quorvel
