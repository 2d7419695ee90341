#include "platform/desktop/ClipboardImage.h"

#include <QBuffer>
#include <QImage>
#include <QImageReader>
#include <QSet>
#include <QtEndian>

namespace quorvel {

namespace {

// Layout of a PNG file: W3C "Portable Network Graphics", sections 5.2, 5.3 and 11.2.2.
constexpr QByteArrayView signature("\x89PNG\r\n\x1a\n", 8);
constexpr qsizetype chunkOverhead = 12; // length, type and checksum
constexpr qsizetype headerLength = 13;

quint32 bigEndian(const QByteArray& bytes, qsizetype at) {
    return qFromBigEndian<quint32>(bytes.constData() + at);
}

QByteArrayView chunkType(const QByteArray& bytes, qsizetype at) {
    return QByteArrayView(bytes).sliced(at + 4, 4);
}

bool hasSaneHeader(const QByteArray& bytes) {
    const qsizetype at = signature.size();
    if (bytes.size() < at + chunkOverhead + headerLength || chunkType(bytes, at) != "IHDR")
        return false;
    const quint32 width = bigEndian(bytes, at + 8);
    const quint32 height = bigEndian(bytes, at + 12);
    constexpr quint32 most = 0x7FFFFFFF;
    return width > 0 && width <= most && height > 0 && height <= most;
}

bool isRaster(const QString& type) {
    static const QSet<QString> types = [] {
        QSet<QString> readable;
        for (const QByteArray& mime : QImageReader::supportedMimeTypes())
            readable.insert(QString::fromLatin1(mime));
        // Names that programs use on the clipboard beside the registered ones.
        if (readable.contains(QStringLiteral("image/bmp")))
            readable |= {QStringLiteral("image/x-bmp"), QStringLiteral("image/x-MS-bmp"),
                         QStringLiteral("image/x-win-bitmap")};
        if (readable.contains(QStringLiteral("image/jpeg")))
            readable.insert(QStringLiteral("image/jpg"));
        readable.remove(QStringLiteral("image/svg+xml"));
        readable.remove(QStringLiteral("image/svg+xml-compressed"));
        return readable;
    }();
    return types.contains(type);
}

} // namespace

bool looksLikePng(const QByteArray& bytes) {
    if (!bytes.startsWith(signature) || !hasSaneHeader(bytes))
        return false;
    qsizetype at = signature.size();
    while (at + chunkOverhead <= bytes.size()) {
        if (chunkType(bytes, at) == "IEND")
            return true;
        at += chunkOverhead + qsizetype(bigEndian(bytes, at));
    }
    return false;
}

QByteArray ownPng(const ClipboardSnapshotItem& item) {
    for (const PasteboardRepresentation& representation : item.payloadByType)
        if (representation.type == pasteboardTypePng && looksLikePng(representation.data))
            return representation.data;
    return {};
}

std::optional<PasteboardRepresentation> convertibleImage(const ClipboardSnapshotItem& item) {
    for (const PasteboardRepresentation& representation : item.payloadByType)
        if (representation.type.startsWith(QLatin1StringView("image/")) &&
            representation.type != pasteboardTypePng && isRaster(representation.type))
            return representation;
    return std::nullopt;
}

QByteArray convertedToPng(const PasteboardRepresentation& image) {
    QBuffer source;
    source.setData(image.data);
    source.open(QIODevice::ReadOnly);
    QImageReader reader(&source);
    reader.setDecideFormatFromContent(true);
    const QImage picture = reader.read();
    if (picture.isNull())
        return {};
    QByteArray png;
    QBuffer target(&png);
    target.open(QIODevice::WriteOnly);
    return picture.save(&target, "PNG") ? png : QByteArray();
}

} // namespace quorvel
