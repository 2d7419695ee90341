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
    disableHintsSection,
    openGeneralSettings,
    quit,
};

} // namespace quorvel
