#pragma once

#include "foundation/Date.h"
#include "platform/Pasteboard.h"
#include "smart/ClipboardAutoTag.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QUuid>

#include <optional>

namespace quorvel {

/// One clip of the history.
struct RecentClipboardEntry {
    QUuid id; ///< Fresh for every capture, also of a text that was there before.
    QString text;
    QList<ClipboardSnapshotItem> payloadItems; ///< Every captured form; not kept across runs.
    QByteArray imagePNGData;                   ///< Empty when the clip is no picture.
    QList<ClipboardAutoTag> autoTags;
    std::optional<QString> sourceAppName;
    std::optional<QString> sourceAppBundleIdentifier;
    Date copiedAt;
    bool pinned = false;
    std::optional<Date> pinnedUntil; ///< Absent for a pin without end.
    int usageCount = 0;

    bool isImage() const { return !imagePNGData.isEmpty(); }
};

/// What makes two clips the same one: "image:" and the lower-case hexadecimal SHA-256 of the PNG
/// for a picture, the text otherwise.
QString identityKey(const QString& text, const QByteArray& imagePNGData);
QString identityKey(const RecentClipboardEntry& entry);

/// Whether the entry has the identity of this content, without computing a digest.
bool isSameClip(const RecentClipboardEntry& entry, const QString& text,
                const QByteArray& imagePNGData);

} // namespace quorvel
