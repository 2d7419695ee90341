#include "app/StatusReport.h"

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

QString resultName(HotKeyState::Result result) {
    switch (result) {
    case HotKeyState::Result::bound:
        return QStringLiteral("bound");
    case HotKeyState::Result::taken:
        return QStringLiteral("taken");
    case HotKeyState::Result::noSuchKey:
        return QStringLiteral("no such key");
    }
    return {};
}

QString shortcutName(const SnippetShortcut& shortcut) {
    struct Name {
        Modifier modifier;
        const char* text;
    };
    constexpr std::array<Name, 4> names{{{Modifier::control, "Ctrl+"},
                                         {Modifier::option, "Alt+"},
                                         {Modifier::shift, "Shift+"},
                                         {Modifier::command, "Super+"}}};
    QString text;
    for (const Name& name : names)
        if (shortcut.modifiers().testFlag(name.modifier))
            text += QLatin1StringView(name.text);
    return text + shortcut.key.toUpper();
}

QJsonArray hotKeys(const GlobalHotKeys& keys) {
    QJsonArray list;
    for (const HotKeyState& state : keys.states())
        list.append(QJsonObject{
            {QStringLiteral("name"), state.name},
            {QStringLiteral("shortcut"), shortcutName(state.shortcut)},
            {QStringLiteral("state"), resultName(state.result)},
            {QStringLiteral("status"), state.status},
        });
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
        {QStringLiteral("hotKeys"), hotKeys(parts.hotKeys)},
        {QStringLiteral("clips"), parts.history.recentClipboard().size()},
        {QStringLiteral("snippets"), snippetCount(parts.store)},
        {QStringLiteral("smartFolders"), smartFolders(parts.smartFolders)},
        {QStringLiteral("changes"), changes(parts.adapters.pasteboard)},
        {QStringLiteral("setAsideFiles"), setAsideFiles(parts)},
        {QStringLiteral("problems"), problems(parts)},
        {QStringLiteral("paths"), paths(parts.environment.paths)},
    };
}

} // namespace quorvel
