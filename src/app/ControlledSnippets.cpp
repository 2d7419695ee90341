#include "app/ControlledSnippets.h"

#include "menu/ClipItems.h"

#include <QJsonArray>

namespace quorvel::controlled {

namespace {

QJsonObject listed(const Snippet& snippet, const QUuid& group, const ControlledParts& parts,
                   qsizetype number) {
    const SnippetGroup* known = parts.store.group(group);
    return {
        {QStringLiteral("number"), number},
        {QStringLiteral("id"), idText(snippet.id)},
        {QStringLiteral("title"), snippet.title},
        {QStringLiteral("text"), snippet.text},
        {QStringLiteral("group"), known ? QJsonValue(known->name) : QJsonValue()},
        {QStringLiteral("groupId"), known ? QJsonValue(idText(group)) : QJsonValue()},
        {QStringLiteral("usageCount"), snippet.usageCount},
    };
}

/// Null when there is no such snippet.
const Snippet* named(const SnippetStore& store, const QString& reference) {
    bool isNumber = false;
    const qlonglong number = reference.toLongLong(&isNumber);
    if (!isNumber)
        return store.snippet(QUuid::fromString(reference));
    const Snippet* found = nullptr;
    qlonglong reached = 0;
    forEachSnippet(store, [&](const Snippet& snippet, const QUuid&) {
        if (++reached == number)
            found = &snippet;
    });
    return found;
}

template <typename Use>
ControlReply withSnippet(const ControlledParts& parts, const QJsonObject& arguments,
                         const Use& use) {
    const QString reference = arguments.value(QStringLiteral("snippet")).toVariant().toString();
    const Snippet* snippet = named(parts.store, reference);
    if (!snippet)
        return {{},
                QStringLiteral("there is no snippet \"%1\"; name one by its number or id, see "
                               "\"quorvelctl snippets list\"")
                    .arg(reference)};
    const Snippet copy = *snippet; // what is done may change the library
    use(copy);
    return {true, {}};
}

QString noSuchGroup(const SnippetStore& store, const QString& name) {
    QStringList names;
    for (const SnippetGroup& group : store.groups())
        names.append(u'"' + group.name + u'"');
    return QStringLiteral("there is no group \"%1\"; ").arg(name) +
           (names.isEmpty() ? QStringLiteral("there are no groups yet, leave --group out")
                            : QStringLiteral("there are: ") + names.join(QStringLiteral(", ")));
}

ControlReply add(const ControlledParts& parts, const SnippetContent& content,
                 const SnippetPlace& place) {
    const SnippetResult result = parts.store.addSnippet(content, place);
    if (!result.isOk())
        return {{},
                QStringLiteral("there is nothing to see in the text: write the snippet to "
                               "standard input")};
    return {idText(result.id), {}};
}

} // namespace

ControlReply listSnippets(const ControlledParts& parts, const QJsonObject&) {
    QJsonArray snippets;
    forEachSnippet(parts.store, [&](const Snippet& snippet, const QUuid& group) {
        snippets.append(listed(snippet, group, parts, snippets.size() + 1));
    });
    return {snippets, {}};
}

ControlReply addSnippet(const ControlledParts& parts, const QJsonObject& arguments) {
    const SnippetContent content{.title = arguments.value(QStringLiteral("title")).toString(),
                                 .text = arguments.value(QStringLiteral("text")).toString()};
    if (content.text.isEmpty())
        return {{}, QStringLiteral("there is no text: write the snippet to standard input")};
    if (!arguments.contains(QStringLiteral("group")))
        return add(parts, content, {});
    const QString name = arguments.value(QStringLiteral("group")).toString();
    for (const SnippetGroup& group : parts.store.groups())
        if (group.name == name)
            return add(parts, content, {.group = group.id});
    return {{}, noSuchGroup(parts.store, name)};
}

ControlReply removeSnippet(const ControlledParts& parts, const QJsonObject& arguments) {
    return withSnippet(parts, arguments,
                       [&](const Snippet& snippet) { parts.store.deleteSnippet(snippet.id); });
}

ControlReply pasteSnippet(const ControlledParts& parts, const QJsonObject& arguments) {
    return withSnippet(parts, arguments, [&](const Snippet& snippet) {
        parts.focus.refresh();
        parts.pasteEngine.pasteText(snippet.text);
        parts.store.incrementUsageCount(snippet.id);
    });
}

} // namespace quorvel::controlled
