#include "clipboard/EntryCoder.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace quorvel {

namespace {

namespace field {
const QString entries = QStringLiteral("entries");
const QString id = QStringLiteral("id");
const QString text = QStringLiteral("text");
const QString image = QStringLiteral("imagePNGData");
const QString tags = QStringLiteral("autoTags");
const QString appName = QStringLiteral("sourceAppName");
const QString appIdentifier = QStringLiteral("sourceAppBundleIdentifier");
const QString copiedAt = QStringLiteral("copiedAt");
const QString pinned = QStringLiteral("pinned");
const QString pinnedUntil = QStringLiteral("pinnedUntil");
const QString usageCount = QStringLiteral("usageCount");
} // namespace field

QJsonArray encodedTags(const QList<ClipboardAutoTag>& tags) {
    QJsonArray names;
    for (const ClipboardAutoTag tag : tags)
        names.append(rawName(tag));
    return names;
}

QList<ClipboardAutoTag> decodedTags(const QJsonArray& names) {
    QList<ClipboardAutoTag> tags;
    for (const auto& name : names)
        if (const auto tag = autoTagNamed(name.toString()))
            tags.append(*tag);
    return tags;
}

std::optional<QString> optionalText(const QJsonValue& value) {
    return value.isString() ? std::optional(value.toString()) : std::nullopt;
}

bool hasRequiredFields(const QJsonObject& object) {
    return object.value(field::id).isString() && object.value(field::text).isString() &&
           object.value(field::tags).isArray() && object.value(field::copiedAt).isDouble() &&
           object.value(field::pinned).isBool() && object.value(field::usageCount).isDouble();
}

} // namespace

QJsonObject encodedEntry(const RecentClipboardEntry& entry) {
    QJsonObject object{
        {field::id, entry.id.toString(QUuid::WithoutBraces).toUpper()},
        {field::text, entry.text},
        {field::tags, encodedTags(entry.autoTags)},
        {field::copiedAt, entry.copiedAt.secondsSinceReference},
        {field::pinned, entry.pinned},
        {field::usageCount, entry.usageCount},
    };
    if (entry.isImage())
        object.insert(field::image, QString::fromLatin1(entry.imagePNGData.toBase64()));
    if (entry.sourceAppName)
        object.insert(field::appName, *entry.sourceAppName);
    if (entry.sourceAppBundleIdentifier)
        object.insert(field::appIdentifier, *entry.sourceAppBundleIdentifier);
    if (entry.pinnedUntil)
        object.insert(field::pinnedUntil, entry.pinnedUntil->secondsSinceReference);
    return object;
}

std::optional<RecentClipboardEntry> decodedEntry(const QJsonObject& object) {
    const QUuid id(object.value(field::id).toString());
    if (!hasRequiredFields(object) || id.isNull())
        return std::nullopt;
    RecentClipboardEntry entry;
    entry.id = id;
    entry.text = object.value(field::text).toString();
    entry.imagePNGData = QByteArray::fromBase64(object.value(field::image).toString().toLatin1());
    entry.autoTags = decodedTags(object.value(field::tags).toArray());
    entry.sourceAppName = optionalText(object.value(field::appName));
    entry.sourceAppBundleIdentifier = optionalText(object.value(field::appIdentifier));
    entry.copiedAt = Date{object.value(field::copiedAt).toDouble()};
    entry.pinned = object.value(field::pinned).toBool();
    if (entry.pinned && object.value(field::pinnedUntil).isDouble())
        entry.pinnedUntil = Date{object.value(field::pinnedUntil).toDouble()};
    entry.usageCount = std::max(0, object.value(field::usageCount).toInt());
    return entry;
}

QByteArray encodedHistory(const QList<RecentClipboardEntry>& entries) {
    QJsonArray array;
    for (const RecentClipboardEntry& entry : entries)
        array.append(encodedEntry(entry));
    return QJsonDocument(QJsonObject{{field::entries, array}}).toJson(QJsonDocument::Indented);
}

DecodedHistory decodedHistory(const QByteArray& bytes) {
    const QJsonValue array = QJsonDocument::fromJson(bytes).object().value(field::entries);
    DecodedHistory history{{}, !array.isArray()};
    for (const auto& value : array.toArray()) {
        if (auto entry = decodedEntry(value.toObject()))
            history.entries.append(std::move(*entry));
        else
            history.damaged = true;
    }
    return history;
}

} // namespace quorvel
