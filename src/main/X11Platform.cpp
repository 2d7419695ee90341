#include "main/X11Platform.h"

#include "platform/desktop/DesktopFiles.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/X11HotKeyCenter.h"
#include "platform/x11/X11KeyPoster.h"
#include "platform/x11/X11KeyboardLayouts.h"
#include "platform/x11/X11Pasteboard.h"
#include "platform/x11/X11SelectedText.h"
#include "platform/x11/X11TrayWatcher.h"
#include "platform/x11/X11Workspace.h"
#include "ui/Icons.h"

#include "ui/QtAppearance.h"
#include "ui/QtDesktop.h"
#include "ui/StatusItem.h"
#include "ui/SwitchingMenu.h"
#include "ui/editor/QtTextEditor.h"

namespace quorvel {

struct X11Platform::Parts {
    Parts(const Clock& clock, MainQueue& mainQueue, BackgroundQueue& background,
          const StringTable& strings, const DesktopTerminal::Setup& terminalSetup)
        : desktopFiles(DesktopSources::fromEnvironment(), clock, background)
        , workspace(connection, desktopFiles)
        , hotKeys(connection.root())
        , keyboardLayouts(connection)
        , keyPoster(connection, mainQueue, hotKeys,
                    {[this] { pasteboard.offerAsPrimary(); },
                     [this](quint32 window) { pasteboard.expectReader(window); },
                     [this] { return pasteboard.isSettled(); }})
        , selectedText(connection, pasteboard, keyPoster, mainQueue)
        , menu(icons, strings, pasteboard)
        , statusItem(strings, icons)
        , desktop(icons)
        , terminal(terminalSetup)
        , textEditor(strings, pasteboard) {
        menu.setKeyPositions(hotKeys);
        connect(&trayWatcher, &X11TrayWatcher::trayAvailable, &statusItem,
                &StatusItem::setEmbedderPresent);
        trayWatcher.start();
    }

    X11Pasteboard pasteboard; // first: from here on no copy is missed
    X11Connection connection;
    DesktopFiles desktopFiles;
    X11Workspace workspace;
    X11HotKeyCenter hotKeys;
    X11KeyboardLayouts keyboardLayouts; // behind the workspace, whose events it adds to
    X11KeyPoster keyPoster;
    X11SelectedText selectedText;
    Icons icons;
    SwitchingMenu menu;
    X11TrayWatcher trayWatcher;
    StatusItem statusItem;
    QtDesktop desktop;
    DesktopTerminal terminal;
    QtAppearance appearance;
    QtTextEditor textEditor;
};

X11Platform::X11Platform(const Clock& clock, MainQueue& mainQueue, BackgroundQueue& background,
                         const StringTable& strings, const TextServices& textServices,
                         const DesktopTerminal::Setup& terminal)
    : m_textServices(textServices)
    , m_parts(std::make_unique<Parts>(clock, mainQueue, background, strings, terminal)) {
    connect(&m_parts->pasteboard, &X11Pasteboard::connectionLost, this, &X11Platform::displayLost);
}

X11Platform::~X11Platform() = default;

Adapters X11Platform::adapters() {
    return {.name = QStringLiteral("x11"),
            .pasteboard = m_parts->pasteboard,
            .workspace = m_parts->workspace,
            .keyPoster = m_parts->keyPoster,
            .selectedText = m_parts->selectedText,
            .hotKeys = m_parts->hotKeys,
            .keyboardLayouts = m_parts->keyboardLayouts,
            .statusItem = m_parts->statusItem,
            .menu = m_parts->menu,
            .textEditor = m_parts->textEditor,
            .desktop = m_parts->desktop,
            .terminal = m_parts->terminal,
            .appearance = m_parts->appearance,
            .textServices = m_textServices};
}

void X11Platform::warmUp() {
    m_parts->desktopFiles.preload();
}

} // namespace quorvel
