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
    const SnippetStore& store;
    const SmartFolderClipboard& smartFolders;
    PasteboardWatcher& watcher;
    FocusTracker& focus;
    PasteEngine& pasteEngine;
    GlobalHotKeys& hotKeys;
    StatusMenuController& menu;
    std::function<void()> quit;
};

/// Teaches the server every command: list, show, copy, paste, status, quit.
void addControlCommands(ControlServer& server, const ControlledParts& parts);

} // namespace quorvel
