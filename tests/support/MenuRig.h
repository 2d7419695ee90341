#pragma once

#include "CoreRig.h"
#include "FakeKeyboardLayouts.h"

#include "menu/MenuPreparation.h"
#include "menu/StatusMenu.h"
#include "menu/Submenus.h"

namespace quorvel::testing {

/// What the menu is made from.
struct MenuRig : CoreRig {
    SnippetStore snippets{folder.filePath(QStringLiteral("snippets.json")), clock, mainQueue, disk};
    SmartFolderClipboard smartFolders{smartPluginRegistry, history, preferences, clock};
    FolderSnippets folderSnippets{snippets, detector, smartPluginRegistry};
    StringTable strings = StringTable::forLanguage(QStringLiteral("en"));
    ShownTexts shownTexts;
    SnippetRows snippetRows;
    SearchTexts searchTexts{preferences};
    TextAnalyses textAnalyses{textServices.dataDetector()};
    FakeKeyboardLayouts layouts;
    KeyboardLayoutVariants layoutVariants{layouts};
    MenuContent content{history,     smartFolders, snippets,      folderSnippets, pasteboard,
                        preferences, strings,      clock,         shownTexts,     snippetRows,
                        searchTexts, textAnalyses, layoutVariants};

    QUuid addSnippet(const QString& title, const QString& text, const QUuid& group = {},
                     const std::optional<SnippetShortcut>& keys = {}) {
        return snippets
            .addSnippet({.title = title, .text = text, .customShortcut = keys},
                        {.group = group.isNull() ? std::nullopt : std::optional(group)})
            .id;
    }

    QUuid addGroup(const QString& name) { return snippets.addGroup(name).id; }

    /// A clip that the detector takes for a link.
    void insertLink(const QString& text) {
        history.insert({.text = text, .autoTags = {ClipboardAutoTag::url}});
    }
};

} // namespace quorvel::testing
