#include "ui/ThumbnailDecoder.h"

#include <QBuffer>
#include <QImageReader>

namespace quorvel {

namespace {

/// A screen of 8K has 33 million. Decoding as many takes about a second.
constexpr qint64 mostPixels = 50'000'000;

QSize fitted(QSize size, QSize box) {
    if (size.width() > box.width() || size.height() > box.height())
        size.scale(box, Qt::KeepAspectRatio);
    return size.expandedTo(QSize(1, 1));
}

} // namespace

QImage decodeThumbnail(const QByteArray& png, QSize box) {
    QBuffer buffer;
    buffer.setData(png);
    QImageReader reader(&buffer, "png");
    reader.setAutoDetectImageFormat(false);
    const QSize size = reader.size();
    if (size.isEmpty() || qint64(size.width()) * size.height() > mostPixels)
        return {};
    reader.setScaledSize(fitted(size, box));
    return reader.read().convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

} // namespace quorvel
