#pragma once

#include "clipboard/SmartFolderClipboard.h"
#include "foundation/Clock.h"
#include "foundation/StringTable.h"
#include "menu/FolderSnippets.h"
#include "menu/MenuVariant.h"
#include "menu/SnippetRows.h"
#include "menu/search/SearchTexts.h"
#include "paste/layouts/KeyboardLayoutVariants.h"
#include "platform/Pasteboard.h"
#include "smart/context/TextAnalyses.h"
#include "smart/masking/ShownTexts.h"

namespace quorvel {

/// What the menu is built from. Read at each build, never kept.
struct MenuContent {
    const ClipboardHistory& history;
    const SmartFolderClipboard& smartFolders;
    const SnippetStore& snippets;
    const FolderSnippets& folderSnippets;
    const Pasteboard& pasteboard;
    const Preferences& preferences;
    const StringTable& strings;
    const Clock& clock;
    const ShownTexts& shownTexts;
    const SnippetRows& snippetRows;
    const SearchTexts& searchTexts;
    const TextAnalyses& textAnalyses;
    const KeyboardLayoutVariants& layoutVariants;

    QString text(const char* key) const { return strings.text(QString::fromLatin1(key)); }
};

/// How the menu is being shown.
struct MenuState {
    MenuVariant variant = MenuVariant::main;
    bool isOptionMode = false;  ///< Clips and snippets lead to all that can be done with them.
    bool isControlHeld = false; ///< Choosing a clip would edit it first.
    QString searchQuery;        ///< As typed.
    QString hint;               ///< Empty for none.
    QString problem;            ///< Why changes cannot be saved; empty while they can.
};

} // namespace quorvel
