#include "platform/desktop/TerminalPrograms.h"

#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

#include <algorithm>
#include <array>

namespace quorvel {

namespace {

struct Known {
    QStringView name;
    QStringView before; ///< Arguments before the program to run, with blanks between.
};

/// How most of them take a program, and how one that is not known is asked.
constexpr QStringView usualArguments = u"-e";

/// The choice of the desktop and of the system first, then by how common they are.
constexpr std::array knownTerminals{
    Known{u"xdg-terminal-exec", u""},
    Known{u"x-terminal-emulator", usualArguments},
    Known{u"gnome-terminal", u"--"},
    Known{u"ptyxis", u"--"},
    Known{u"kgx", u"--"},
    Known{u"konsole", usualArguments},
    Known{u"xfce4-terminal", u"-x"},
    Known{u"mate-terminal", u"-x"},
    Known{u"terminator", u"-x"},
    Known{u"qterminal", usualArguments},
    Known{u"lxterminal", usualArguments},
    Known{u"tilix", usualArguments},
    Known{u"deepin-terminal", usualArguments},
    Known{u"kitty", u""},
    Known{u"alacritty", usualArguments},
    Known{u"foot", u""},
    Known{u"footclient", u""},
    Known{u"wezterm", u"start --"},
    Known{u"ghostty", usualArguments},
    Known{u"rio", usualArguments},
    Known{u"cool-retro-term", usualArguments},
    Known{u"terminology", usualArguments},
    Known{u"urxvt", usualArguments},
    Known{u"rxvt", usualArguments},
    Known{u"st", usualArguments},
    Known{u"xterm", usualArguments},
    Known{u"uxterm", usualArguments},
};

QStringList argumentsOf(const QString& path) {
    const QString name = QFileInfo(path).fileName();
    const auto known = std::find_if(knownTerminals.begin(), knownTerminals.end(),
                                    [&](const Known& terminal) { return terminal.name == name; });
    const QStringView before = known == knownTerminals.end() ? usualArguments : known->before;
    return before.toString().split(u' ', Qt::SkipEmptyParts);
}

QString found(const QString& name, const QProcessEnvironment& environment) {
    const QString path = environment.value(QStringLiteral("PATH"));
    const QStringList folders = path.split(u':', Qt::SkipEmptyParts);
    return folders.isEmpty() ? QString() : QStandardPaths::findExecutable(name, folders);
}

std::optional<TerminalProgram> namedTerminal(const QProcessEnvironment& environment) {
    const QString named = environment.value(QStringLiteral("TERMINAL"));
    // A path with blanks is more likely than arguments behind such a name.
    QStringList words =
        QFileInfo(named).isExecutable() ? QStringList(named) : QProcess::splitCommand(named);
    if (words.isEmpty())
        return std::nullopt;
    const QString path = found(words.takeFirst(), environment);
    if (path.isEmpty())
        return std::nullopt;
    return TerminalProgram{path, words + argumentsOf(path)};
}

} // namespace

std::optional<TerminalProgram> userTerminal(const QProcessEnvironment& environment) {
    if (const auto named = namedTerminal(environment))
        return named;
    for (const Known& terminal : knownTerminals) {
        const QString path = found(terminal.name.toString(), environment);
        if (!path.isEmpty())
            return TerminalProgram{path, argumentsOf(path)};
    }
    return std::nullopt;
}

} // namespace quorvel
