#include "Arguments.h"

namespace quorvel::ctl {

namespace {

QJsonObject textArgument(Words& words, const QString& complaint) {
    const QString text = words.rest.join(u' ');
    words.rest.clear();
    if (text.trimmed().isEmpty())
        words.problem = complaint;
    return {{QStringLiteral("text"), text}};
}

} // namespace

std::optional<QString> Words::take() {
    return rest.isEmpty() ? std::nullopt : std::optional(rest.takeFirst());
}

bool Words::takeFlag(const QString& flag) {
    return rest.removeAll(flag) > 0;
}

std::optional<QString> Words::takeOption(const QString& option) {
    const qsizetype index = rest.indexOf(option);
    if (index < 0)
        return std::nullopt;
    rest.removeAt(index);
    if (index < rest.size())
        return rest.takeAt(index);
    problem = QStringLiteral("%1 needs a word after it").arg(option);
    return std::nullopt;
}

QJsonObject noArguments(Words&) {
    return {};
}

QJsonObject menuArgument(Words& words) {
    const auto menu = words.take();
    return menu ? QJsonObject{{QStringLiteral("menu"), *menu}} : QJsonObject();
}

QJsonObject positionArgument(Words& words) {
    bool isNumber = false;
    const int position = words.take().value_or(QString()).toInt(&isNumber);
    if (!isNumber || position < 1)
        words.problem = QStringLiteral(
            "the position of a clip is missing: a number from 1, see \"quorvelctl list\"");
    return {{QStringLiteral("position"), position}};
}

QJsonObject pasteArguments(Words& words) {
    const bool plain = words.takeFlag(QStringLiteral("--plain"));
    const bool keep = words.takeFlag(QStringLiteral("--keep"));
    QJsonObject arguments = positionArgument(words);
    if (plain && keep)
        words.problem = QStringLiteral("--plain and --keep do not go together");
    if (plain || keep)
        arguments.insert(QStringLiteral("mode"),
                         plain ? QStringLiteral("plainText") : QStringLiteral("keepClipboard"));
    return arguments;
}

QJsonObject toolArgument(Words& words) {
    const auto tool = words.take();
    if (!tool)
        words.problem =
            QStringLiteral("transform needs plain, trim, upper, lower or title after it");
    return {{QStringLiteral("tool"), tool.value_or(QString())}};
}

QJsonObject queryArgument(Words& words) {
    return textArgument(words, QStringLiteral("search needs a text to search for"));
}

QJsonObject layoutsArgument(Words& words) {
    return textArgument(words, QStringLiteral("layouts needs a text to convert"));
}

QJsonObject inputArgument(Words& words) {
    if (!words.rest.isEmpty())
        return {}; // said to be too much before anything is read
    const auto text = words.readInput();
    if (!text)
        words.problem = QStringLiteral("standard input cannot be read");
    return {{QStringLiteral("text"), text.value_or(QString())}};
}

QJsonObject newSnippetArguments(Words& words) {
    QJsonObject arguments;
    for (const auto& [option, name] :
         {std::pair(QStringLiteral("--title"), QStringLiteral("title")),
          std::pair(QStringLiteral("--group"), QStringLiteral("group"))})
        if (const auto value = words.takeOption(option))
            arguments.insert(name, *value);
    if (!words.problem.isEmpty())
        return {};
    const QJsonObject input = inputArgument(words);
    arguments.insert(QStringLiteral("text"), input.value(QStringLiteral("text")));
    return arguments;
}

QJsonObject snippetArgument(Words& words) {
    const auto snippet = words.take();
    if (!snippet)
        words.problem = QStringLiteral("the number or id of a snippet is missing, see "
                                       "\"quorvelctl snippets list\"");
    return {{QStringLiteral("snippet"), snippet.value_or(QString())}};
}

} // namespace quorvel::ctl
