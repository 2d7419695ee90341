#include "Commands.h"

#include "foundation/Text.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

#include <cstdio>

namespace quorvel::ctl {

namespace {

QByteArray json(const QJsonValue& value) {
    const QJsonDocument document =
        value.isArray() ? QJsonDocument(value.toArray()) : QJsonDocument(value.toObject());
    return document.toJson();
}

QString line(const QJsonObject& clip) {
    constexpr int titleLimit = 100;
    constexpr int titleTail = 20;
    const QString title = clip.value(QStringLiteral("image")).toBool()
                              ? QStringLiteral("[picture]")
                              : shortened(singleLine(clip.value(QStringLiteral("text")).toString()),
                                          titleLimit, titleTail);
    const QString mark =
        clip.value(QStringLiteral("pinned")).toBool() ? QStringLiteral("*") : QStringLiteral(" ");
    return QStringLiteral("%1%2 %3\n")
        .arg(clip.value(QStringLiteral("position")).toInt(), 4)
        .arg(mark, title);
}

QString clipList(const QJsonArray& clips) {
    if (clips.isEmpty())
        return QStringLiteral("The history is empty.\n");
    QString text;
    for (const auto& clip : clips)
        text += line(clip.toObject());
    return text;
}

QString plain(const QJsonValue& value) {
    if (value.isString())
        return value.toString();
    if (value.isBool())
        return value.toBool() ? QStringLiteral("yes") : QStringLiteral("no");
    return value.toVariant().toString();
}

/// Nested values as indented lines "name: value".
QString outline(const QJsonValue& value, int depth) {
    const QString indent(depth * 2, QLatin1Char(' '));
    QString text;
    if (value.isArray()) {
        for (const auto& element : value.toArray())
            text += element.isObject() ? outline(element, depth) : indent + plain(element) + u'\n';
        return text;
    }
    const QJsonObject object = value.toObject();
    for (auto field = object.begin(); field != object.end(); ++field) {
        const bool nested = field.value().isObject() || field.value().isArray();
        text += indent + field.key() + QStringLiteral(": ") +
                (nested ? QStringLiteral("\n") + outline(field.value(), depth + 1)
                        : plain(field.value()) + u'\n');
    }
    return text;
}

bool takeFlag(QStringList& arguments, const QString& flag) {
    return arguments.removeAll(flag) > 0;
}

std::optional<QJsonObject> argumentsOf(const QString& command, QStringList& words,
                                       QString& problem) {
    if (command == QLatin1StringView("copy")) {
        QFile input;
        if (!input.open(stdin, QIODevice::ReadOnly)) {
            problem = QStringLiteral("standard input cannot be read");
            return std::nullopt;
        }
        return QJsonObject{{QStringLiteral("text"), QString::fromUtf8(input.readAll())}};
    }
    if (command != QLatin1StringView("paste"))
        return QJsonObject();
    bool isNumber = false;
    const int position = words.isEmpty() ? 0 : words.takeFirst().toInt(&isNumber);
    if (!isNumber || position < 1) {
        problem = QStringLiteral("paste needs the position of a clip, from 1");
        return std::nullopt;
    }
    return QJsonObject{{QStringLiteral("position"), position}};
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
        "  show             open the menu at the pointer\n"
        "  copy             put standard input onto the clipboard\n"
        "  paste N          paste clip N (from 1) into the program in front\n"
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

std::optional<Invocation> parse(const QStringList& arguments, QString& problem) {
    static const QStringList commands{QStringLiteral("list"),   QStringLiteral("show"),
                                      QStringLiteral("copy"),   QStringLiteral("paste"),
                                      QStringLiteral("status"), QStringLiteral("quit")};
    QStringList words = arguments;
    const bool asJson = takeFlag(words, QStringLiteral("--json"));
    const QString command = words.isEmpty() ? QString() : words.takeFirst();
    if (!commands.contains(command)) {
        problem = command.isEmpty() ? QStringLiteral("a command is missing")
                                    : QStringLiteral("unknown command \"%1\"").arg(command);
        return std::nullopt;
    }
    const auto fields = argumentsOf(command, words, problem);
    if (!fields)
        return std::nullopt;
    if (!words.isEmpty()) {
        problem = QStringLiteral("\"%1\" is one word too many").arg(words.first());
        return std::nullopt;
    }
    return Invocation{{command, *fields}, asJson ? Form::json : Form::text};
}

QString rendered(const Invocation& invocation, const QJsonValue& result) {
    const QString& command = invocation.request.command;
    if (command != QLatin1StringView("list") && command != QLatin1StringView("status"))
        return {};
    if (invocation.form == Form::json)
        return QString::fromUtf8(json(result));
    return command == QLatin1StringView("list") ? clipList(result.toArray()) : outline(result, 0);
}

} // namespace quorvel::ctl
