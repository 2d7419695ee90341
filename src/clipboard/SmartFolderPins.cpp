#include "clipboard/SmartFolderPins.h"

#include <QJsonArray>
#include <QJsonObject>

namespace quorvel {

namespace {

QJsonObject inFolder(const QJsonObject& folders, SmartFolderKind folder) {
    return folders.value(rawName(folder)).toObject();
}

QJsonArray without(const QJsonArray& keys, const QString& key) {
    QJsonArray kept;
    for (const auto& other : keys)
        if (other.toString() != key)
            kept.append(other);
    return kept;
}

/// Stores a folder's part, or nothing for a folder that has none left.
template <typename Part>
QJsonObject withPart(QJsonObject folders, SmartFolderKind folder, const Part& part) {
    if (part.isEmpty())
        folders.remove(rawName(folder));
    else
        folders.insert(rawName(folder), part);
    return folders;
}

} // namespace

bool SmartFolderPins::isPinned(SmartFolderKind folder, const QString& key) const {
    return m_preferences.record(keys::smartFolderPinnedClipboardTexts)
        .toObject()
        .value(rawName(folder))
        .toArray()
        .contains(key);
}

std::optional<Date> SmartFolderPins::expiry(SmartFolderKind folder, const QString& key) const {
    const QJsonObject folders =
        m_preferences.record(keys::smartFolderPinnedClipboardExpirations).toObject();
    const QJsonValue seconds = inFolder(folders, folder).value(key);
    return seconds.isDouble() ? std::optional(Date::fromUnixSeconds(seconds.toDouble()))
                              : std::nullopt;
}

void SmartFolderPins::pin(SmartFolderKind folder, const QString& key, std::optional<Date> until) {
    const QJsonObject texts =
        m_preferences.record(keys::smartFolderPinnedClipboardTexts).toObject();
    QJsonArray pinned = without(texts.value(rawName(folder)).toArray(), key);
    pinned.append(key);
    const QJsonObject times =
        m_preferences.record(keys::smartFolderPinnedClipboardExpirations).toObject();
    QJsonObject expirations = inFolder(times, folder);
    if (until)
        expirations.insert(key, until->unixSeconds());
    else
        expirations.remove(key);
    m_preferences.set(keys::smartFolderPinnedClipboardTexts, withPart(texts, folder, pinned));
    m_preferences.set(keys::smartFolderPinnedClipboardExpirations,
                      withPart(times, folder, expirations));
}

void SmartFolderPins::unpin(SmartFolderKind folder, const QString& key) {
    if (!isPinned(folder, key))
        return;
    const QJsonObject texts =
        m_preferences.record(keys::smartFolderPinnedClipboardTexts).toObject();
    const QJsonObject times =
        m_preferences.record(keys::smartFolderPinnedClipboardExpirations).toObject();
    QJsonObject expirations = inFolder(times, folder);
    expirations.remove(key);
    m_preferences.set(
        keys::smartFolderPinnedClipboardTexts,
        withPart(texts, folder, without(texts.value(rawName(folder)).toArray(), key)));
    m_preferences.set(keys::smartFolderPinnedClipboardExpirations,
                      withPart(times, folder, expirations));
}

void SmartFolderPins::forget(const QString& key) {
    for (const SmartFolderKind folder : allSmartFolders())
        unpin(folder, key);
}

void SmartFolderPins::dropExpired(Date now) {
    const QJsonObject times =
        m_preferences.record(keys::smartFolderPinnedClipboardExpirations).toObject();
    for (const SmartFolderKind folder : allSmartFolders()) {
        const QJsonObject expirations = inFolder(times, folder);
        for (auto it = expirations.begin(); it != expirations.end(); ++it)
            if (Date::fromUnixSeconds(it.value().toDouble()) < now)
                unpin(folder, it.key());
    }
}

} // namespace quorvel
