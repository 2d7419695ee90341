#include "app/ControlCommands.h"

#include "app/ControlledClips.h"
#include "app/ControlledLayouts.h"
#include "app/ControlledSnippets.h"
#include "app/StatusReport.h"

#include <QStringBuilder>

namespace quorvel {

namespace {

ControlReply show(const ControlledParts& parts, const QJsonObject& arguments) {
    const QString name =
        arguments.value(QStringLiteral("menu")).toString(menuVariantNames.front().toString());
    const auto variant = menuVariantNamed(name);
    if (!variant)
        return {{},
                QStringLiteral("there is no menu \"%1\"; name main, paste, copy or translate")
                    .arg(name)};
    parts.menu.open(*variant);
    return {true, {}};
}

ControlReply status(const ControlledParts& parts, const QJsonObject&) {
    return {statusReport(parts), {}};
}

/// After the answer has gone out.
ControlReply quit(const ControlledParts& parts, const QJsonObject&) {
    parts.environment.mainQueue.after({}, &parts.menu, parts.quit);
    return {true, {}};
}

struct Command {
    const char* name;
    ControlReply (*answer)(const ControlledParts& parts, const QJsonObject& arguments);
};

constexpr std::array commands{
    Command{"list", controlled::listClips},
    Command{"search", controlled::search},
    Command{"copy", controlled::copy},
    Command{"paste", controlled::pasteClip},
    Command{"append", controlled::append},
    Command{"transform", controlled::transform},
    Command{"pin", controlled::pinClip},
    Command{"unpin", controlled::unpinClip},
    Command{"delete", controlled::deleteClip},
    Command{"snippets list", controlled::listSnippets},
    Command{"snippets add", controlled::addSnippet},
    Command{"snippets remove", controlled::removeSnippet},
    Command{"snippets paste", controlled::pasteSnippet},
    Command{"layouts", controlled::readLayouts},
    Command{"show", show},
    Command{"status", status},
    Command{"quit", quit},
};

} // namespace

void addControlCommands(ControlServer& server, const ControlledParts& parts) {
    for (const Command& command : commands)
        server.handle(QString::fromLatin1(command.name),
                      [parts, answer = command.answer](const QJsonObject& arguments) {
                          return answer(parts, arguments);
                      });
}

} // namespace quorvel
