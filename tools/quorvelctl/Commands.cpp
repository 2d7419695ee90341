#include "Commands.h"

#include "Rendering.h"

#include <array>
#include <cstdio>

namespace quorvel::ctl {

namespace {

struct Command {
    QStringView name; ///< One word, or two.
    QJsonObject (*arguments)(Words& words);
    QString (*rendered)(const QJsonValue& result);
    bool hasJson = false;
};

constexpr std::array commands{
    Command{u"list", noArguments, clipList, true},
    Command{u"search", queryArgument, foundList, true},
    Command{u"layouts", layoutsArgument, layoutList, true},
    Command{u"show", menuArgument, nothing},
    Command{u"copy", inputArgument, nothing},
    Command{u"paste", pasteArguments, nothing},
    Command{u"append", noArguments, nothing},
    Command{u"transform", toolArgument, nothing},
    Command{u"pin", positionArgument, nothing},
    Command{u"unpin", positionArgument, nothing},
    Command{u"delete", positionArgument, nothing},
    Command{u"snippets list", noArguments, snippetList, true},
    Command{u"snippets add", newSnippetArguments, line},
    Command{u"snippets remove", snippetArgument, nothing},
    Command{u"snippets paste", snippetArgument, nothing},
    Command{u"status", noArguments, outline, true},
    Command{u"quit", noArguments, nothing},
};

/// Takes the words of the command's name; null when they name none.
const Command* takeCommand(Words& words) {
    for (const Command& command : commands) {
        const QStringList name = command.name.toString().split(u' ');
        if (words.rest.mid(0, name.size()) != name)
            continue;
        words.rest = words.rest.mid(name.size());
        return &command;
    }
    return nullptr;
}

QString unknown(const QStringList& words) {
    if (words.isEmpty())
        return QStringLiteral("a command is missing");
    if (words.first() == QLatin1StringView("snippets"))
        return QStringLiteral("\"snippets\" needs list, add, remove or paste after it");
    return QStringLiteral("unknown command \"%1\"").arg(words.first());
}

} // namespace

int complain(const QString& message, ExitCode code) {
    std::fprintf(stderr, "quorvelctl: %s\n", qUtf8Printable(message));
    return code;
}

QString usage() {
    return QStringLiteral(
        "Usage: quorvelctl COMMAND\n"
        "\n"
        "  list [--json]    the clips, newest first\n"
        "  search TEXT [--json]\n"
        "                   the clips and snippets in which TEXT is found\n"
        "  layouts TEXT [--json]\n"
        "                   the keyboard layout in which TEXT was typed, and TEXT as it\n"
        "                   would be in the others\n"
        "  show [main|paste|copy|translate]\n"
        "                   open the menu at the pointer, in the flavour of the tray\n"
        "                   icon or of one of the hot keys\n"
        "  copy             put standard input onto the clipboard\n"
        "  paste N [--plain|--keep]\n"
        "                   paste clip N (from 1) into the program in front; as plain\n"
        "                   text, or with the clipboard as it was afterwards\n"
        "  append           add the selection of the program in front to the newest clip\n"
        "  transform plain|trim|upper|lower|title\n"
        "                   rewrite the text on the clipboard\n"
        "  pin N, unpin N   keep clip N, or no longer\n"
        "  delete N         forget clip N\n"
        "  snippets list [--json]\n"
        "                   the snippets with their numbers\n"
        "  snippets add [--title TITLE] [--group NAME]\n"
        "                   make a snippet of standard input; prints its id\n"
        "  snippets remove SNIPPET\n"
        "  snippets paste SNIPPET\n"
        "                   SNIPPET is a number of the list or an id\n"
        "  status [--json]  how the running instance is\n"
        "  quit             end the running instance\n"
        "\n"
        "Without a running instance:\n"
        "\n"
        "  detect [--region CC]\n"
        "                   say what texts are: reads one JSON string a line and\n"
        "                   writes a JSON object for each, with \"tags\", \"matches\"\n"
        "                   (kind, start and length in UTF-16 units, value), \"masked\"\n"
        "                   (null when there is no secret) and \"micros\"; CC is the\n"
        "                   country whose national telephone numbers and order of\n"
        "                   dates count\n");
}

std::optional<Invocation> parse(const QStringList& arguments, const ReadInput& readInput,
                                QString& problem) {
    Words words{arguments, readInput, {}};
    const Command* command = takeCommand(words);
    if (!command) {
        problem = unknown(words.rest);
        return std::nullopt;
    }
    const bool asJson = command->hasJson && words.takeFlag(QStringLiteral("--json"));
    const QJsonObject fields = command->arguments(words);
    if (words.problem.isEmpty() && !words.rest.isEmpty())
        words.problem = QStringLiteral("\"%1\" is one word too many").arg(words.rest.first());
    if (!words.problem.isEmpty()) {
        problem = words.problem;
        return std::nullopt;
    }
    return Invocation{{command->name.toString(), fields}, asJson ? json : command->rendered};
}

} // namespace quorvel::ctl
