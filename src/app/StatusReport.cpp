#include "app/StatusReport.h"

#include "menu/KeyNames.h"

#include <QJsonArray>

namespace quorvel {

namespace {

QJsonObject counts(const QMap<QString, qint64>& byReason) {
    QJsonObject object;
    for (auto reason = byReason.begin(); reason != byReason.end(); ++reason)
        object.insert(reason.key(), reason.value());
    return object;
}

QJsonObject changes(const Pasteboard& pasteboard) {
    const PasteboardActivity activity = pasteboard.activity();
    return {
        {QStringLiteral("captured"), activity.taken},
        {QStringLiteral("skipped"), counts(activity.skipped)},
        {QStringLiteral("failed"), counts(activity.failed)},
    };
}

QJsonObject pastes(const PasteCounts& counts) {
    return {
        {QStringLiteral("asked"), counts.asked},
        {QStringLiteral("posted"), counts.posted},
        {QStringLiteral("fetched"), counts.fetched},
    };
}

QString resultName(HotKeyState::Result result) {
    switch (result) {
    case HotKeyState::Result::bound:
        return QStringLiteral("bound");
    case HotKeyState::Result::taken:
        return QStringLiteral("taken");
    case HotKeyState::Result::noSuchKey:
        return QStringLiteral("no such key");
    case HotKeyState::Result::off:
        return QStringLiteral("off");
    }
    return {};
}

QJsonObject hotKey(const HotKeyState& state, const StringTable& strings) {
    const KeyEquivalent keys{state.shortcut.key, state.shortcut.modifiers()};
    QJsonObject object{
        {QStringLiteral("name"), state.name},
        {QStringLiteral("shortcut"), keyEquivalentText(keys, strings)},
        {QStringLiteral("state"), resultName(state.result)},
    };
    if (state.status != 0)
        object.insert(QStringLiteral("status"), state.status);
    if (!state.takenBy.isEmpty())
        object.insert(QStringLiteral("takenBy"), state.takenBy);
    return object;
}

QJsonArray hotKeys(const GlobalHotKeys& keys, const StringTable& strings) {
    QJsonArray list;
    for (const HotKeyState& state : keys.states())
        list.append(hotKey(state, strings));
    return list;
}

QJsonObject paths(const DataPaths& paths) {
    return {
        {QStringLiteral("history"), paths.historyFile},
        {QStringLiteral("journal"), paths.journalFile},
        {QStringLiteral("snippets"), paths.snippetsFile},
        {QStringLiteral("preferences"), paths.preferencesFile},
        {QStringLiteral("control"), paths.controlSocket},
    };
}

QJsonArray setAsideFiles(const ControlledParts& parts) {
    QJsonArray files = QJsonArray::fromStringList(parts.historyStore.setAsideFiles() +
                                                  parts.store.setAsideFiles());
    if (!parts.preferences.setAsideFile().isEmpty())
        files.append(parts.preferences.setAsideFile());
    return files;
}

qsizetype snippetCount(const SnippetStore& store) {
    qsizetype count = store.rootSnippets().size();
    for (const SnippetGroup& group : store.groups())
        count += group.snippets.size();
    return count;
}

/// How many clips each folder has; folders without any are left out.
QJsonObject smartFolders(const SmartFolderClipboard& folders) {
    QJsonObject object;
    for (const SmartFolderKind folder : allSmartFolders())
        if (const auto& entries = folders.entries(folder); !entries.isEmpty())
            object.insert(rawName(folder), entries.size());
    return object;
}

QJsonObject problems(const ControlledParts& parts) {
    QJsonObject object;
    if (!parts.historyStore.saveProblem().isEmpty())
        object.insert(QStringLiteral("history"), parts.historyStore.saveProblem());
    if (!parts.store.saveProblem().isEmpty())
        object.insert(QStringLiteral("snippets"), parts.store.saveProblem());
    if (!parts.preferences.writeProblem().isEmpty())
        object.insert(QStringLiteral("preferences"), parts.preferences.writeProblem());
    return object;
}

} // namespace

QJsonObject statusReport(const ControlledParts& parts) {
    return {
        {QStringLiteral("version"), QStringLiteral(QUORVEL_VERSION)},
        {QStringLiteral("processIdentifier"), parts.environment.processIdentifier},
        {QStringLiteral("adapter"), parts.adapters.name},
        {QStringLiteral("tray"), parts.adapters.statusItem.state()},
        {QStringLiteral("canPostKeys"), parts.adapters.keyPoster.isTrusted()},
        {QStringLiteral("hotKeys"), hotKeys(parts.hotKeys, parts.environment.strings)},
        {QStringLiteral("clips"), parts.history.recentClipboard().size()},
        {QStringLiteral("snippets"), snippetCount(parts.store)},
        {QStringLiteral("smartFolders"), smartFolders(parts.smartFolders)},
        {QStringLiteral("changes"), changes(parts.adapters.pasteboard)},
        {QStringLiteral("pastes"), pastes(parts.pasteDelivery.counts())},
        {QStringLiteral("setAsideFiles"), setAsideFiles(parts)},
        {QStringLiteral("problems"), problems(parts)},
        {QStringLiteral("paths"), paths(parts.environment.paths)},
    };
}

} // namespace quorvel
