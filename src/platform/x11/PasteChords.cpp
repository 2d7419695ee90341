#include "platform/x11/PasteChords.h"

#include <QHash>
#include <QStringList>

#include <xkbcommon/xkbcommon-keysyms.h>

namespace quorvel {

namespace {

struct Chords {
    PasteChord paste;
    std::optional<PasteChord> copy;
    bool isTerminal = true; ///< Or like one: its program gets the keys that move the caret.
};

/// Insert copies nearly everywhere, and in a terminal that is not known here it interrupts nothing.
const PasteChord copyByInsert = {XKB_KEY_Insert, Modifier::control};
const PasteChord copyInTerminal = {XKB_KEY_c, Modifier::control | Modifier::shift};

const Chords usual = {{XKB_KEY_v, Modifier::control}, copyByInsert, false};
const Chords terminal = {{XKB_KEY_v, Modifier::control | Modifier::shift}, copyInTerminal};
const Chords insertKey = {{XKB_KEY_Insert, Modifier::shift}, std::nullopt};
const Chords insertPrimary = {{XKB_KEY_Insert, Modifier::shift, true}, std::nullopt};

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

using Table = QHash<QString, Chords>;

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

const Chords& chordsOf(const WindowClass& windowClass) {
    static const Table table = makeTable();
    for (const QString& text : {windowClass.name.toLower(), windowClass.instance.toLower()})
        for (const QString& name : {text, text.section(u'.', -1)})
            if (const auto found = table.constFind(name); found != table.cend())
                return *found;
    return usual;
}

} // namespace

PasteChord pasteChordFor(const WindowClass& windowClass) {
    return chordsOf(windowClass).paste;
}

std::optional<PasteChord> copyChordFor(const WindowClass& windowClass) {
    return chordsOf(windowClass).copy;
}

std::optional<PasteChord> caretChordFor(const WindowClass& windowClass, CaretKeys keys) {
    if (chordsOf(windowClass).isTerminal)
        return std::nullopt;
    const bool isLeft = keys == CaretKeys::left || keys == CaretKeys::selectLeft;
    const bool selects = keys == CaretKeys::selectLeft || keys == CaretKeys::selectRight;
    return PasteChord{isLeft ? xkb_keysym_t(XKB_KEY_Left) : xkb_keysym_t(XKB_KEY_Right),
                      selects ? Modifiers(Modifier::shift) : Modifiers()};
}

} // namespace quorvel
