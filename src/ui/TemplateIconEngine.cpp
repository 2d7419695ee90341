#include "ui/TemplateIconEngine.h"

#include <QFile>
#include <QGuiApplication>
#include <QPainter>
#include <QPalette>
#include <QPixmap>

#include <algorithm>
#include <array>

namespace quorvel {

namespace {

/// The sizes that the build draws, in pixels.
constexpr std::array bakedSizes{16, 18, 22, 24, 32, 36, 48, 72, 96};

QString maskPath(const QString& name, int pixels) {
    return QStringLiteral(":/quorvel/icons/%1-%2.png").arg(name).arg(pixels);
}

/// The mask of exactly this size, made from the next larger baked one.
QImage mask(const QString& name, int pixels) {
    const auto* fitting = std::lower_bound(bakedSizes.begin(), bakedSizes.end(), pixels);
    const int baked = fitting == bakedSizes.end() ? bakedSizes.back() : *fitting;
    QImage image(maskPath(name, baked));
    image.convertTo(QImage::Format_Grayscale8);
    image.reinterpretAsFormat(QImage::Format_Alpha8);
    if (baked == pixels)
        return image;
    return image.scaled(pixels, pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
        .convertToFormat(QImage::Format_Alpha8);
}

QPixmap tinted(const QImage& mask, const QColor& colour) {
    QImage image(mask.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.drawImage(0, 0, mask);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), colour);
    painter.end();
    return QPixmap::fromImage(image);
}

QColor textColour(QIcon::Mode mode) {
    const QPalette palette = QGuiApplication::palette();
    if (mode == QIcon::Selected)
        return palette.color(QPalette::HighlightedText);
    return palette.color(mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active,
                         QPalette::Text);
}

} // namespace

TemplateIconEngine::TemplateIconEngine(QString name, std::shared_ptr<TintedPictures> pictures,
                                       std::optional<QColor> colour)
    : m_name(std::move(name))
    , m_pictures(std::move(pictures))
    , m_colour(colour) {}

bool TemplateIconEngine::isEmbedded(const QString& name) {
    return !name.isEmpty() && QFile::exists(maskPath(name, bakedSizes.front()));
}

void TemplateIconEngine::paint(QPainter* painter, const QRect& rect, QIcon::Mode mode,
                               QIcon::State) {
    const qreal scale = painter->device()->devicePixelRatioF();
    const int side = std::min(rect.width(), rect.height());
    QPixmap pixmap = picture(qRound(side * scale), mode);
    pixmap.setDevicePixelRatio(scale);
    QRect place(0, 0, side, side);
    place.moveCenter(rect.center());
    painter->drawPixmap(place, pixmap);
}

QPixmap TemplateIconEngine::pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) {
    return picture(std::min(size.width(), size.height()), mode);
}

QPixmap TemplateIconEngine::scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state,
                                         qreal) {
    return pixmap(size, mode, state); // The size is in device pixels already.
}

QList<QSize> TemplateIconEngine::availableSizes(QIcon::Mode, QIcon::State) {
    QList<QSize> sizes;
    for (int pixels : bakedSizes)
        sizes.append(QSize(pixels, pixels));
    return sizes;
}

QPixmap TemplateIconEngine::picture(int pixels, QIcon::Mode mode) {
    const QColor colour = m_colour.value_or(textColour(mode));
    const QString key = QStringLiteral("%1 %2 %3").arg(m_name).arg(pixels).arg(colour.rgba());
    if (const QPixmap* known = m_pictures->object(key))
        return *known;
    auto* fresh = new QPixmap(tinted(mask(m_name, pixels), colour));
    const QPixmap result = *fresh;
    m_pictures->insert(key, fresh);
    return result;
}

} // namespace quorvel
