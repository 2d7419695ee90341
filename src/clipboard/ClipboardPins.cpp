#include "clipboard/ClipboardPins.h"

#include <QJsonArray>
#include <QJsonObject>

namespace quorvel {

ClipboardPins::ClipboardPins(Preferences& preferences)
    : m_preferences(preferences) {}

bool ClipboardPins::areNone() const {
    return m_preferences.record(keys::pinnedClipboardTexts).toArray().isEmpty();
}

bool ClipboardPins::areInFolders() const {
    return !m_preferences.record(keys::smartFolderPinnedClipboardTexts).toObject().isEmpty();
}

bool ClipboardPins::isPinned(const QString& key) const {
    return m_preferences.record(keys::pinnedClipboardTexts).toArray().contains(key);
}

std::optional<Date> ClipboardPins::expiry(const QString& key) const {
    const QJsonValue seconds =
        m_preferences.record(keys::pinnedClipboardExpirations).toObject().value(key);
    return seconds.isDouble() ? std::optional(Date::fromUnixSeconds(seconds.toDouble()))
                              : std::nullopt;
}

bool ClipboardPins::isPinnedInFolder(const QString& key) const {
    const QJsonObject folders =
        m_preferences.record(keys::smartFolderPinnedClipboardTexts).toObject();
    return std::any_of(folders.begin(), folders.end(),
                       [&](const QJsonValue& keys) { return keys.toArray().contains(key); });
}

void ClipboardPins::pin(const QString& key, std::optional<Date> until) {
    QJsonArray texts = m_preferences.record(keys::pinnedClipboardTexts).toArray();
    if (!texts.contains(key))
        texts.append(key);
    QJsonObject expirations = m_preferences.record(keys::pinnedClipboardExpirations).toObject();
    if (until)
        expirations.insert(key, until->unixSeconds());
    else
        expirations.remove(key);
    m_preferences.set(keys::pinnedClipboardTexts, texts);
    m_preferences.set(keys::pinnedClipboardExpirations, expirations);
}

void ClipboardPins::unpin(const QString& key) {
    QJsonArray kept;
    for (const auto& text : m_preferences.record(keys::pinnedClipboardTexts).toArray())
        if (text.toString() != key)
            kept.append(text);
    QJsonObject expirations = m_preferences.record(keys::pinnedClipboardExpirations).toObject();
    expirations.remove(key);
    m_preferences.set(keys::pinnedClipboardTexts, kept);
    m_preferences.set(keys::pinnedClipboardExpirations, expirations);
}

} // namespace quorvel
