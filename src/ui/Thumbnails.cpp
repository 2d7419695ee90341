#include "ui/Thumbnails.h"

#include "ui/ThumbnailDecoder.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPixmap>

#include <algorithm>

namespace quorvel {

namespace {

/// The rows of a menu show as many small pictures as this; large ones are looked at one by one.
constexpr qsizetype leastBytesKept = 1'500'000;
constexpr qsizetype fullPicturesKept = 4;
constexpr qsizetype bytesPerPixel = 4;
constexpr qsizetype hashedPart = 256 * 1024;
constexpr int threadLifetimeMilliseconds = 5000;

/// A hairline keeps a white picture apart from a white menu.
QPixmap framed(const QImage& picture, int rounding) {
    const qreal scale = picture.devicePixelRatio();
    QImage result(picture.size(), QImage::Format_ARGB32_Premultiplied);
    result.fill(Qt::transparent);
    QImage texture = picture;
    texture.setDevicePixelRatio(1);
    QPainter painter(&result);
    painter.setRenderHint(QPainter::Antialiasing, rounding > 0);
    painter.setBrush(texture);
    painter.setPen(Qt::NoPen);
    const qreal radius = rounding * scale;
    painter.drawRoundedRect(result.rect(), radius, radius);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QColor(128, 128, 128, 110));
    painter.drawRoundedRect(QRectF(result.rect()).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
    painter.end();
    result.setDevicePixelRatio(scale);
    return QPixmap::fromImage(result);
}

} // namespace

Thumbnails::Thumbnails()
    : Thumbnails(Look()) {}

Thumbnails::Thumbnails(const Look& look)
    : m_look(look)
    , m_icons(leastBytesKept) {
    m_pool.setMaxThreadCount(1);
    m_pool.setExpiryTimeout(threadLifetimeMilliseconds);
    m_pool.setThreadPriority(QThread::LowPriority);
}

Thumbnails::~Thumbnails() {
    m_pool.clear();
    m_pool.waitForDone();
}

QIcon Thumbnails::icon(const QByteArray& png) {
    const qreal scale = qGuiApp->devicePixelRatio();
    makeRoom(m_look.box * scale);
    const Key key = keyOf(png, scale);
    if (const QIcon* known = m_icons.object(key))
        return *known;
    startDecoding(key, png, scale);
    return {};
}

/// What did not fit would be decoded again each time it is asked for.
void Thumbnails::makeRoom(QSize box) {
    const qsizetype full = qsizetype(box.width()) * box.height() * bytesPerPixel;
    m_icons.setMaxCost(std::max(leastBytesKept, full * fullPicturesKept));
}

Thumbnails::Key Thumbnails::keyOf(const QByteArray& png, qreal scale) {
    const qsizetype part = std::min(hashedPart, png.size());
    return {png.size(), qHashBits(png.constData(), part),
            qHashBits(png.constData() + png.size() - part, part), qRound(scale * 100)};
}

void Thumbnails::startDecoding(const Key& key, const QByteArray& png, qreal scale) {
    if (m_underway.contains(key))
        return;
    m_underway.insert(key);
    const QSize box = m_look.box * scale;
    m_pool.start([this, key, png, box, scale] {
        QImage picture = decodeThumbnail(png, box);
        picture.setDevicePixelRatio(scale);
        QMetaObject::invokeMethod(
            this, [this, key, picture] { keep(key, picture); }, Qt::QueuedConnection);
    });
}

/// A null icon is kept for what cannot be decoded, so that it is not tried at each opening.
void Thumbnails::keep(const Key& key, const QImage& picture) {
    m_underway.remove(key);
    const QIcon icon = picture.isNull() ? QIcon() : QIcon(framed(picture, m_look.rounding));
    m_icons.insert(key, new QIcon(icon), std::max<qsizetype>(picture.sizeInBytes(), 64));
    emit decoded();
}

} // namespace quorvel
