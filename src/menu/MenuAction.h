#pragma once

namespace quorvel {

/// What choosing an item asks for. Named like the operations that carry them out.
enum class MenuAction {
    none,
    pasteRecentSnippet,
    pasteRecentSnippetWithMode,
    pasteRootSnippet,
    pasteRootSnippetWithMode,
    pasteGroupSnippet,
    pasteGroupSnippetWithMode,
    addFromClipboard,
    addFromClipboardToGroup,
    copyClipboardAsPlainText,
    copyClipboardTrimAndCollapse,
    copyClipboardUppercase,
    copyClipboardLowercase,
    copyClipboardTitleCase,
    togglePinRecentSnippet,
    pinRecentSnippetForHour,
    pinRecentSnippetForDay,
    pasteContextValue, ///< About a `ContextPastePayload`.
    openRecentURL,     ///< About an address, as are the other actions that open.
    openRecentJiraIssue,
    openRecentPullRequest,
    composeEmail,          ///< About a "mailto:" address.
    callRecentPhoneNumber, ///< About a number in its international form.
    openTerminalCommand,   ///< About a command, to be put at a prompt.
    runTerminalCommand,
    disableHintsSection,
    openGeneralSettings,
    quit,
};

} // namespace quorvel
