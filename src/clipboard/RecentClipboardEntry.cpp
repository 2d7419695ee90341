#include "clipboard/RecentClipboardEntry.h"

#include <QCryptographicHash>

namespace quorvel {

QString identityKey(const QString& text, const QByteArray& imagePNGData) {
    if (imagePNGData.isEmpty())
        return text;
    const QByteArray digest = QCryptographicHash::hash(imagePNGData, QCryptographicHash::Sha256);
    return QStringLiteral("image:") + QString::fromLatin1(digest.toHex());
}

QString identityKey(const RecentClipboardEntry& entry) {
    return identityKey(entry.text, entry.imagePNGData);
}

bool isSameClip(const RecentClipboardEntry& entry, const QString& text,
                const QByteArray& imagePNGData) {
    if (entry.isImage() || !imagePNGData.isEmpty())
        return entry.imagePNGData == imagePNGData;
    return entry.text == text;
}

} // namespace quorvel
