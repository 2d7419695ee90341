#include "clipboard/SmartFolderClipboard.h"

#include <algorithm>

namespace quorvel {

namespace {

RecentClipboardEntry withoutPayload(RecentClipboardEntry entry) {
    entry.payloadItems.clear();
    return entry;
}

void removeSame(QList<RecentClipboardEntry>& entries, const RecentClipboardEntry& entry) {
    entries.removeIf([&](const RecentClipboardEntry& known) {
        return isSameClip(known, entry.text, entry.imagePNGData);
    });
}

const RecentClipboardEntry* find(const QList<RecentClipboardEntry>& entries, const QUuid& id) {
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [&](const auto& entry) { return entry.id == id; });
    return found == entries.end() ? nullptr : &*found;
}

} // namespace

SmartFolderClipboard::SmartFolderClipboard(const SmartPluginRegistry& registry,
                                           const ClipboardHistory& history,
                                           Preferences& preferences, const Clock& clock)
    : m_registry(registry)
    , m_history(history)
    , m_preferences(preferences)
    , m_clock(clock)
    , m_pins(preferences) {
    connect(&history, &ClipboardHistory::entryPut, this, &SmartFolderClipboard::put);
    connect(&history, &ClipboardHistory::entryChanged, this, &SmartFolderClipboard::update);
    connect(&history, &ClipboardHistory::entryRemoved, this, &SmartFolderClipboard::remove);
}

const QList<RecentClipboardEntry>& SmartFolderClipboard::entries(SmartFolderKind folder) const {
    static const QList<RecentClipboardEntry> none;
    const auto found = m_smartFolderClipboard.constFind(folder);
    return found == m_smartFolderClipboard.constEnd() ? none : *found;
}

const RecentClipboardEntry* SmartFolderClipboard::entry(const QUuid& id) const {
    if (const RecentClipboardEntry* found = m_history.entry(id))
        return found;
    for (const auto& entries : m_smartFolderClipboard)
        if (const RecentClipboardEntry* found = find(entries, id))
            return found;
    return nullptr;
}

QList<SmartFolderKind> SmartFolderClipboard::enabledSmartFolders() const {
    QList<SmartFolderKind> enabled;
    for (const SmartFolderKind folder : allSmartFolders())
        if (m_preferences.isOn(keys::smartFolderSwitches[std::size_t(folder)]))
            enabled.append(folder);
    return enabled;
}

void SmartFolderClipboard::rebuild() {
    m_smartFolderClipboard.clear();
    const auto& recent = m_history.recentClipboard();
    for (const RecentClipboardEntry& entry : recent)
        for (const SmartFolderKind folder : m_registry.folders(entry.autoTags))
            m_smartFolderClipboard[folder].append(withoutPayload(entry));
    for (const SmartFolderKind folder : allSmartFolders())
        trim(folder);
    emit changed();
}

void SmartFolderClipboard::put(const RecentClipboardEntry& entry) {
    m_pins.dropExpired(m_clock.now());
    const auto folders = m_registry.folders(entry.autoTags);
    for (const SmartFolderKind folder : folders) {
        auto& entries = m_smartFolderClipboard[folder];
        removeSame(entries, entry);
        entries.prepend(withoutPayload(entry));
        trim(folder);
    }
    if (!folders.isEmpty())
        emit changed();
}

void SmartFolderClipboard::update(const RecentClipboardEntry& entry) {
    for (auto& entries : m_smartFolderClipboard)
        for (RecentClipboardEntry& known : entries)
            if (known.id == entry.id)
                known = withoutPayload(entry);
    emit changed();
}

void SmartFolderClipboard::remove(const QString& identityKey) {
    for (auto& entries : m_smartFolderClipboard)
        entries.removeIf([&](const RecentClipboardEntry& entry) {
            return quorvel::identityKey(entry) == identityKey;
        });
    m_pins.forget(identityKey);
    emit changed();
}

void SmartFolderClipboard::trim(SmartFolderKind folder) {
    const auto found = m_smartFolderClipboard.find(folder);
    if (found == m_smartFolderClipboard.end())
        return;
    QList<RecentClipboardEntry> kept;
    qsizetype droppedBytes = 0;
    for (const RecentClipboardEntry& entry : std::as_const(*found)) {
        if (!m_history.entry(entry.id))
            droppedBytes +=
                entry.text.size() * qsizetype(sizeof(QChar)) + entry.imagePNGData.size();
        const bool fits = kept.size() < smartFolderStorageLimit && droppedBytes <= mostDroppedBytes;
        if (fits || isPinned(folder, entry))
            kept.append(entry);
    }
    *found = kept;
}

void SmartFolderClipboard::pin(SmartFolderKind folder, const QUuid& id,
                               std::optional<std::chrono::seconds> span) {
    const RecentClipboardEntry* found = entry(id);
    if (!found)
        return;
    const auto until = span ? std::optional(m_clock.now() + *span) : std::nullopt;
    m_pins.pin(folder, identityKey(*found), until);
    emit changed();
}

void SmartFolderClipboard::unpin(SmartFolderKind folder, const QUuid& id) {
    if (const RecentClipboardEntry* found = entry(id)) {
        m_pins.unpin(folder, identityKey(*found));
        emit changed();
    }
}

bool SmartFolderClipboard::isPinned(SmartFolderKind folder,
                                    const RecentClipboardEntry& entry) const {
    return m_pins.isPinned(folder, identityKey(entry));
}

} // namespace quorvel
