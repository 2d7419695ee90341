#include "smart/rules/TerminalCommand.h"

#include "smart/rules/Characters.h"
#include "smart/rules/Words.h"

#include <algorithm>
#include <array>

namespace quorvel {

namespace {

constexpr qsizetype mostCharacters = 320;
constexpr qsizetype mostWords = 18;

using Names = QStringView; // words with a blank around each, so that one look finds one

constexpr Names prefixWords = u" sudo env nohup time ";

constexpr Names knownCommands =
    u" sudo brew git rg grep sed awk find xargs ls cd pwd mkdir rmdir rm cp mv cat touch chmod"
    " chown curl wget ssh scp rsync tar zip unzip docker kubectl helm npm npx pnpm yarn node"
    " python python3 pip pip3 uv swift xcodebuild make cmake cargo go java javac ruby bundle"
    " rails composer php ps kill killall top htop defaults launchctl open osascript plutil echo"
    " printf ";

struct Subcommands {
    QStringView command;
    Names names;
};

constexpr std::array subcommandTable{
    Subcommands{u"git", u" status log diff show commit push pull add restore checkout branch merge"
                        " rebase stash fetch clone tag "},
    Subcommands{u"brew", u" install uninstall upgrade update list search doctor services tap "},
    Subcommands{u"npm", u" install run test start build publish ci init "},
    Subcommands{u"pnpm", u" install run test start build add remove update "},
    Subcommands{u"yarn", u" install add remove run test start build "},
    Subcommands{u"docker", u" run build compose ps images exec logs pull push stop rm "},
    Subcommands{u"kubectl", u" get describe logs apply delete exec config port-forward "},
    Subcommands{u"swift", u" build test run package "},
    Subcommands{u"xcodebuild", u" -project -workspace -scheme -destination build test clean "},
    Subcommands{u"defaults", u" read write delete "},
    Subcommands{u"launchctl", u" list kickstart print bootstrap bootout "},
    Subcommands{u"open", u" -a -b -n . "},
    Subcommands{u"rg", u" -n -uu --files "},
    Subcommands{u"grep", u" -n -r -i -e "},
    Subcommands{u"find", u" . / "},
    Subcommands{u"python", u" -m -c "},
    Subcommands{u"python3", u" -m -c "},
    Subcommands{u"pip", u" install uninstall list show freeze "},
    Subcommands{u"pip3", u" install uninstall list show freeze "},
};

constexpr std::array shellOperators{QStringView(u" | "), QStringView(u" && "), QStringView(u" || "),
                                    QStringView(u";"),   QStringView(u"$("),   QStringView(u"`"),
                                    QStringView(u">"),   QStringView(u"<")};

bool contains(Names names, QStringView word) {
    for (qsizetype at = names.indexOf(word); at > 0; at = names.indexOf(word, at + 1))
        if (names[at - 1] == u' ' && names[at + word.size()] == u' ')
            return true;
    return false;
}

bool isAscii(QStringView text) {
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x80; });
}

/// What rules a text out before its words are looked at.
bool isRuledOut(QStringView text) {
    return text.isEmpty() || text.size() > mostCharacters || !isAscii(text) ||
           text.contains(u'\n') || text.contains(u"://") || text.contains(u'@') ||
           text.contains(u", ") || QStringView(u".!?").contains(text.back());
}

/// ^[A-Za-z_][A-Za-z0-9_]*=.*$
bool isAssignment(QStringView word) {
    const qsizetype equals = word.indexOf(u'=');
    if (equals < 1 || isAsciiDigit(word[0]))
        return false;
    const QStringView name = word.first(equals);
    return std::all_of(name.begin(), name.end(),
                       [](QChar c) { return isAsciiLetter(c) || isAsciiDigit(c) || c == u'_'; });
}

bool isCommandName(QStringView word) {
    return std::all_of(word.begin(), word.end(), [](QChar c) {
        return isAsciiLetter(c) || isAsciiDigit(c) || QStringView(u"._/-~").contains(c);
    });
}

bool isPath(QStringView word) {
    return word.startsWith(u"./") || word.startsWith(u'/') || word.startsWith(u"~/");
}

bool isQuote(QChar c) {
    return c == u'"' || c == u'\'';
}

bool isShellArgument(QStringView word) {
    return word.startsWith(u'-') || isQuote(word.front()) || isQuote(word.back()) ||
           std::any_of(word.begin(), word.end(),
                       [](QChar c) { return QStringView(u"/~$=:*\\").contains(c); });
}

bool isSubcommand(QStringView command, QStringView word) {
    const auto found = std::find_if(subcommandTable.begin(), subcommandTable.end(),
                                    [&](const Subcommands& row) { return row.command == command; });
    return found != subcommandTable.end() && contains(found->names, word.toString().toLower());
}

} // namespace

bool looksLikeTerminalCommand(QStringView text) {
    text = text.trimmed();
    if (isRuledOut(text))
        return false;
    const auto parts = words(text, mostWords + 1);
    const auto word = std::find_if_not(parts.begin(), parts.end(), [](QStringView part) {
        return isAssignment(part) || contains(prefixWords, part);
    });
    if (parts.size() > mostWords || word == parts.end() || !isCommandName(*word))
        return false;
    const QString command = word->toString().toLower();
    if (isPath(command))
        return true;
    if (!contains(knownCommands, command))
        return false;
    const bool hasOperator = std::any_of(shellOperators.begin(), shellOperators.end(),
                                         [&](QStringView sign) { return text.contains(sign); });
    return hasOperator || std::any_of(word + 1, parts.end(), isShellArgument) ||
           (word + 1 != parts.end() && isSubcommand(command, word[1]));
}

} // namespace quorvel
