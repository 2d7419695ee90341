#include "app/ControlCommands.h"

#include "app/StatusReport.h"

#include <QJsonArray>

namespace quorvel {

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

/// The first `limit` entries; all of them when it is 0.
ControlReply list(const ClipboardHistory& history, int limit) {
    QJsonArray entries;
    for (const RecentClipboardEntry& entry : history.recentClipboard()) {
        entries.append(listed(entry, entries.size() + 1));
        if (entries.size() == limit)
            break;
    }
    return {entries, {}};
}

/// Text that is put on the clipboard on the user's order is a copy like any other.
ControlReply copy(const ControlledParts& parts, const QString& text) {
    if (text.isEmpty())
        return {{}, QStringLiteral("there is nothing to copy: standard input was empty")};
    parts.watcher.markOwnWrite(parts.adapters.pasteboard.write({textItem(text)}));
    parts.watcher.capture();
    return {true, {}};
}

ControlReply paste(const ControlledParts& parts, int position) {
    const auto& entries = parts.history.recentClipboard();
    if (position < 1 || position > entries.size())
        return {{},
                QStringLiteral("there is no clip at position %1; the history has %2")
                    .arg(position)
                    .arg(entries.size())};
    parts.focus.refresh();
    parts.pasteEngine.pasteEntry(entries.at(position - 1));
    return {true, {}};
}

} // namespace

void addControlCommands(ControlServer& server, const ControlledParts& parts) {
    server.handle(QStringLiteral("list"), [parts](const QJsonObject& arguments) {
        return list(parts.history, arguments.value(QStringLiteral("limit")).toInt());
    });
    server.handle(QStringLiteral("show"), [parts](const QJsonObject&) {
        parts.menu.open(MenuVariant::main);
        return ControlReply{true, {}};
    });
    server.handle(QStringLiteral("copy"), [parts](const QJsonObject& arguments) {
        return copy(parts, arguments.value(QStringLiteral("text")).toString());
    });
    server.handle(QStringLiteral("paste"), [parts](const QJsonObject& arguments) {
        return paste(parts, arguments.value(QStringLiteral("position")).toInt());
    });
    server.handle(QStringLiteral("status"), [parts](const QJsonObject&) {
        return ControlReply{statusReport(parts), {}};
    });
    server.handle(QStringLiteral("quit"), [parts](const QJsonObject&) {
        parts.environment.mainQueue.after({}, &parts.menu, parts.quit);
        return ControlReply{true, {}};
    });
}

} // namespace quorvel
