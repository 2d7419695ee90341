#pragma once

#include "app/AppDelegate.h"

namespace quorvel {

/// What the commands of the control tool work on. Outlives the server.
struct ControlledParts {
    const AppDelegate::Environment& environment;
    Adapters& adapters;
    PreferenceStore& preferences;
    ClipboardHistory& history;
    HistoryStore& historyStore;
    SnippetStore& store;
    const SmartFolderClipboard& smartFolders;
    PasteboardWatcher& watcher;
    FocusTracker& focus;
    const PasteDelivery& pasteDelivery;
    PasteEngine& pasteEngine;
    CopyTools& copyTools;
    AppendCopy& appendCopy;
    GlobalHotKeys& hotKeys;
    StatusMenuController& menu;
    MenuContent content;
    std::function<void()> quit;
};

/// Teaches the server every command.
void addControlCommands(ControlServer& server, const ControlledParts& parts);

} // namespace quorvel
