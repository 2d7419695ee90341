#include "platform/desktop/DesktopIndex.h"

#include "foundation/Files.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace quorvel {

namespace {

constexpr qint64 mostFileBytes = 1 << 20;
constexpr qint64 noSuchFolder = -1;
constexpr qint64 notSettled = -2;
constexpr qint64 settlingMilliseconds = 1000;

qint64 changeTime(const QString& folder) {
    const QFileInfo info(folder);
    return info.isDir() ? info.lastModified().toMSecsSinceEpoch() : noSuchFolder;
}

/// The time stamps of file systems are coarse: a second change may leave a young one as it is.
qint64 reliableChangeTime(const QString& folder) {
    const qint64 time = changeTime(folder);
    const qint64 age = QDateTime::currentMSecsSinceEpoch() - time;
    return time != noSuchFolder && age >= 0 && age < settlingMilliseconds ? notSettled : time;
}

QString folderOr(const char* variable, const QString& fallback) {
    const QString value = qEnvironmentVariable(variable);
    return value.isEmpty() ? fallback : value;
}

QStringList languagesFromEnvironment() {
    QStringList names = qEnvironmentVariable("LANGUAGE").split(u':', Qt::SkipEmptyParts);
    for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const QString name = qEnvironmentVariable(variable);
        if (name.isEmpty())
            continue;
        // A plain locale switches the translations off, whatever LANGUAGE says.
        if (localeVariants(name).isEmpty())
            return {};
        return names << name;
    }
    return {};
}

} // namespace

DesktopSources DesktopSources::fromEnvironment() {
    DesktopSources sources;
    const QString home = folderOr("XDG_DATA_HOME", QDir::homePath() + u"/.local/share"_qs);
    const QString shared = folderOr("XDG_DATA_DIRS", u"/usr/local/share:/usr/share"_qs);
    for (const QString& folder : QStringList(home) + shared.split(u':', Qt::SkipEmptyParts))
        sources.folders << QDir::cleanPath(folder + u"/applications"_qs);
    for (const QString& language : languagesFromEnvironment())
        sources.locales << localeVariants(language);
    sources.folders.removeDuplicates();
    sources.locales.removeDuplicates();
    return sources;
}

DesktopIndex::DesktopIndex(const DesktopSources& sources) {
    for (const QString& folder : sources.folders)
        readFolder(folder, folder, sources.locales);
    buildKeys();
}

void DesktopIndex::readFolder(const QString& root, const QString& folder,
                              const QStringList& locales) {
    // Taken before the files are listed: what comes meanwhile is seen as a change.
    m_folderTimes.insert(folder, reliableChangeTime(folder));
    const auto kinds = QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot;
    for (const QFileInfo& info : QDir(folder).entryInfoList(kinds, QDir::Name)) {
        const QString path = info.filePath();
        if (info.isDir() && !info.isSymLink())
            readFolder(root, path, locales);
        else if (info.isFile() && path.endsWith(u".desktop"))
            readFile(path, path.mid(root.size() + 1).chopped(8).replace(u'/', u'-'), locales);
    }
}

void DesktopIndex::readFile(const QString& path, const QString& id, const QStringList& locales) {
    if (m_ids.contains(id))
        return;
    const FileContent content = readWholeFile(path, mostFileBytes);
    auto entry = content.error ? std::nullopt : parseDesktopEntry(content.bytes, locales);
    if (!entry)
        return;
    m_ids.insert(id, true);
    if (entry->isHidden)
        return;
    entry->id = id;
    m_entries.append(std::move(*entry));
}

void DesktopIndex::buildKeys() {
    // Programs in the menus first: helpers often name the same class or executable.
    std::stable_partition(m_entries.begin(), m_entries.end(),
                          [](const DesktopEntry& entry) { return entry.isInMenus; });
    const auto add = [](Keys& keys, const QString& key, qsizetype position) {
        const QString folded = key.toCaseFolded();
        if (!folded.isEmpty() && !keys.contains(folded))
            keys.insert(folded, position);
    };
    for (qsizetype i = 0; i < m_entries.size(); ++i) {
        const DesktopEntry& entry = m_entries[i];
        add(m_byStartupClass, entry.startupWmClass, i);
        add(m_byId, entry.id, i);
        if (entry.id.count(u'.') >= 2)
            add(m_byLastPart, entry.id.section(u'.', -1), i);
        add(m_byExecutable, entry.executable, i);
    }
}

std::optional<DesktopApplication> DesktopIndex::find(const QString& instance,
                                                     const QString& name) const {
    const QString byInstance = instance.toCaseFolded();
    const QString byName = name.toCaseFolded();
    const auto entryFor = [this](const Keys& keys, const QString& key) {
        const qsizetype position = keys.value(key, -1);
        return position < 0 ? nullptr : &m_entries[position];
    };
    // Web applications share their browser's class and differ in the instance.
    const DesktopEntry* entry = entryFor(m_byStartupClass, byInstance);
    if (!entry)
        entry = entryFor(m_byStartupClass, byName);
    for (const Keys* keys : {&m_byId, &m_byLastPart, &m_byExecutable})
        for (const QString* key : {&byName, &byInstance})
            entry = entry ? entry : entryFor(*keys, *key);
    if (!entry)
        return std::nullopt;
    return DesktopApplication{entry->id, entry->name};
}

bool DesktopIndex::isOutdated() const {
    for (auto folder = m_folderTimes.cbegin(); folder != m_folderTimes.cend(); ++folder)
        if (changeTime(folder.key()) != folder.value())
            return true;
    return false;
}

} // namespace quorvel
