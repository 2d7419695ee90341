#include "app/ControlledClips.h"

#include "menu/ClipItems.h"

#include <QJsonArray>

namespace quorvel::controlled {

namespace {

QJsonObject listed(const RecentClipboardEntry& entry, qsizetype position) {
    QJsonArray tags;
    for (const ClipboardAutoTag tag : entry.autoTags)
        tags.append(rawName(tag));
    return {
        {QStringLiteral("position"), position},
        {QStringLiteral("text"), entry.text},
        {QStringLiteral("image"), entry.isImage()},
        {QStringLiteral("tags"), tags},
        {QStringLiteral("pinned"), entry.pinned},
        {QStringLiteral("usageCount"), entry.usageCount},
        {QStringLiteral("source"),
         entry.sourceAppName ? QJsonValue(*entry.sourceAppName) : QJsonValue(QJsonValue::Null)},
        {QStringLiteral("copiedAt"), entry.copiedAt.toDateTime().toString(Qt::ISODateWithMs)},
    };
}

/// Calls `use(entry)` for the clip at the position that is asked for, or says that there is none.
template <typename Use>
ControlReply withClip(const ControlledParts& parts, const QJsonObject& arguments, const Use& use) {
    const int position = arguments.value(QStringLiteral("position")).toInt();
    const auto& entries = parts.history.recentClipboard();
    if (position < 1 || position > entries.size())
        return {{},
                QStringLiteral("there is no clip at position %1; the history has %2, see "
                               "\"quorvelctl list\"")
                    .arg(position)
                    .arg(entries.size())};
    const RecentClipboardEntry entry = entries.at(position - 1); // its use may change the history
    use(entry);
    return {true, {}};
}

QJsonObject found(const RecentClipboardEntry& entry, qsizetype position,
                  const MenuContent& content) {
    return {
        {QStringLiteral("kind"), QStringLiteral("clip")},
        {QStringLiteral("position"), position},
        {QStringLiteral("title"), displayTitle(entry, content)},
        {QStringLiteral("text"), shownText(entry, content)},
    };
}

QJsonObject found(const Snippet& snippet, const QUuid& group, const MenuContent& content) {
    return {
        {QStringLiteral("kind"), QStringLiteral("snippet")},
        {QStringLiteral("id"), idText(snippet.id)},
        {QStringLiteral("group"), group.isNull() ? QJsonValue() : QJsonValue(idText(group))},
        {QStringLiteral("title"), snippet.title},
        {QStringLiteral("text"), shownText(snippet, content)},
    };
}

QJsonArray foundClips(const ControlledParts& parts, const QByteArray& query) {
    const MenuContent& content = parts.content;
    QJsonArray results;
    qsizetype position = 0;
    for (const RecentClipboardEntry& entry : parts.history.recentClipboard()) {
        ++position;
        const QString text = entry.isImage() ? displayTitle(entry, content) : entry.text;
        if (content.searchTexts.contains(entry.id, text, query))
            results.append(found(entry, position, content));
    }
    return results;
}

} // namespace

ControlReply listClips(const ControlledParts& parts, const QJsonObject& arguments) {
    const int limit = arguments.value(QStringLiteral("limit")).toInt();
    QJsonArray entries;
    for (const RecentClipboardEntry& entry : parts.history.recentClipboard()) {
        entries.append(listed(entry, entries.size() + 1));
        if (entries.size() == limit)
            break;
    }
    return {entries, {}};
}

ControlReply search(const ControlledParts& parts, const QJsonObject& arguments) {
    const QString text = arguments.value(QStringLiteral("text")).toString().trimmed();
    if (text.isEmpty())
        return {{}, QStringLiteral("there is nothing to search for; give a text")};
    const QByteArray query = SearchTexts::foldedForm(text);
    QJsonArray results = foundClips(parts, query);
    forEachSnippet(parts.store, [&](const Snippet& snippet, const QUuid& group) {
        if (parts.content.searchTexts.contains(snippet.id, snippet.text, query))
            results.append(found(snippet, group, parts.content));
    });
    return {results, {}};
}

/// Text that is put on the clipboard on the user's order is a copy like any other.
ControlReply copy(const ControlledParts& parts, const QJsonObject& arguments) {
    const QString text = arguments.value(QStringLiteral("text")).toString();
    if (text.isEmpty())
        return {{}, QStringLiteral("there is nothing to copy: standard input was empty")};
    parts.watcher.markOwnWrite(parts.adapters.pasteboard.write({textItem(text)}));
    parts.watcher.capture();
    return {true, {}};
}

ControlReply pasteClip(const ControlledParts& parts, const QJsonObject& arguments) {
    const QString mode =
        arguments.value(QStringLiteral("mode")).toString(rawName(PasteOption::normal));
    const auto option = pasteOption(mode);
    if (!option)
        return {{}, QStringLiteral("there is no way to paste called \"%1\"").arg(mode)};
    return withClip(parts, arguments, [&](const RecentClipboardEntry& entry) {
        parts.focus.refresh();
        parts.pasteEngine.pasteEntry(entry, *option);
    });
}

/// How it went is shown on the desktop.
ControlReply append(const ControlledParts& parts, const QJsonObject&) {
    parts.appendCopy.append();
    return {true, {}};
}

ControlReply transform(const ControlledParts& parts, const QJsonObject& arguments) {
    const QString name = arguments.value(QStringLiteral("tool")).toString();
    const auto tool = copyToolNamed(name);
    if (!tool)
        return {{},
                QStringLiteral("there is no \"%1\"; name plain, trim, upper, lower or title")
                    .arg(name)};
    if (!parts.copyTools.apply(*tool))
        return {{}, QStringLiteral("there is no text on the clipboard")};
    return {true, {}};
}

ControlReply pinClip(const ControlledParts& parts, const QJsonObject& arguments) {
    return withClip(parts, arguments,
                    [&](const RecentClipboardEntry& entry) { parts.history.pin(entry.id); });
}

ControlReply unpinClip(const ControlledParts& parts, const QJsonObject& arguments) {
    return withClip(parts, arguments, [&](const RecentClipboardEntry& entry) {
        if (entry.pinned)
            parts.history.togglePin(entry.id);
    });
}

ControlReply deleteClip(const ControlledParts& parts, const QJsonObject& arguments) {
    return withClip(parts, arguments,
                    [&](const RecentClipboardEntry& entry) { parts.history.remove(entry.id); });
}

} // namespace quorvel::controlled
