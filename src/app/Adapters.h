#pragma once

#include "menu/MenuRenderer.h"
#include "paste/TextEditor.h"
#include "platform/Appearance.h"
#include "platform/Desktop.h"
#include "platform/HotKeyCenter.h"
#include "platform/KeyPoster.h"
#include "platform/KeyboardLayouts.h"
#include "platform/Pasteboard.h"
#include "platform/SelectedText.h"
#include "platform/Terminal.h"
#include "platform/TextServices.h"
#include "platform/TrayIcon.h"
#include "platform/Workspace.h"

namespace quorvel {

/// The platform as the program sees it: one implementation of every port. Not owned.
struct Adapters {
    QString name; ///< For the status report.
    Pasteboard& pasteboard;
    Workspace& workspace;
    KeyPoster& keyPoster;
    SelectedText& selectedText;
    HotKeyCenter& hotKeys;
    KeyboardLayouts& keyboardLayouts;
    TrayIcon& statusItem;
    MenuRenderer& menu;
    TextEditor& textEditor;
    Desktop& desktop;
    Terminal& terminal;
    Appearance& appearance;
    const TextServices& textServices;
};

} // namespace quorvel
