#include "platform/x11/PasteChords.h"

#include <QHash>
#include <QStringList>

#include <xkbcommon/xkbcommon-keysyms.h>

namespace quorvel {

namespace {

const PasteChord usual = {XKB_KEY_v, Modifier::control};
const PasteChord terminal = {XKB_KEY_v, Modifier::control | Modifier::shift};
const PasteChord insertKey = {XKB_KEY_Insert, Modifier::shift};
const PasteChord insertPrimary = {XKB_KEY_Insert, Modifier::shift, true};

/// Class names in lower case; of a reverse-DNS class the last part.
constexpr const char* insertPrimaryClasses[] = {
    "xterm", "uxterm", "koi8rxterm", "urxvt", "rxvt", "rxvt-unicode", "mrxvt", "aterm", "mlterm",
};
constexpr const char* insertClasses[] = {"emacs"};
constexpr const char* terminalClasses[] = {
    "alacritty",
    "blackbox",
    "com.raggesilver.blackbox",
    "console",
    "contour",
    "cool-retro-term",
    "deepin-terminal",
    "foot",
    "footclient",
    "ghostty",
    "gnome-terminal",
    "gnome-terminal-server",
    "guake",
    "hyper",
    "io.elementary.terminal",
    "kgx",
    "kitty",
    "konsole",
    "lilyterm",
    "lxterminal",
    "mate-terminal",
    "pantheon-terminal",
    "ptyxis",
    "qterminal",
    "roxterm",
    "sakura",
    "st",
    "st-256color",
    "stterm",
    "stterm-256color",
    "tabby",
    "terminator",
    "terminology",
    "termite",
    "tilda",
    "tilix",
    "warp",
    "wezterm",
    "wezterm-gui",
    "xfce4-terminal",
    "yakuake",
};

using Table = QHash<QString, PasteChord>;

Table makeTable() {
    Table table;
    for (const char* name : insertPrimaryClasses)
        table.insert(QString::fromLatin1(name), insertPrimary);
    for (const char* name : insertClasses)
        table.insert(QString::fromLatin1(name), insertKey);
    for (const char* name : terminalClasses)
        table.insert(QString::fromLatin1(name), terminal);
    return table;
}

} // namespace

PasteChord pasteChordFor(const WindowClass& windowClass) {
    static const Table table = makeTable();
    for (const QString& text : {windowClass.name.toLower(), windowClass.instance.toLower()})
        for (const QString& name : {text, text.section(u'.', -1)})
            if (const auto found = table.constFind(name); found != table.cend())
                return *found;
    return usual;
}

} // namespace quorvel
