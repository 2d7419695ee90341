#include "clipboard/RecentClipboardEntry.h"

#include <QCryptographicHash>

namespace quorvel {

QString identityKey(const QString& text, const QByteArray& imagePNGData) {
    if (imagePNGData.isEmpty())
        return text;
    const QByteArray digest = QCryptographicHash::hash(imagePNGData, QCryptographicHash::Sha256);
    return QStringLiteral("image:") + QString::fromLatin1(digest.toHex());
}

} // namespace quorvel
