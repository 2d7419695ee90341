#pragma once

#include <QCache>
#include <QColor>
#include <QIconEngine>

#include <memory>
#include <optional>

namespace quorvel {

/// Tinted pictures that were drawn lately, shared by all icons.
using TintedPictures = QCache<QString, QPixmap>;

/// Draws a baked mask in the colour that text has in the palette at that moment, or in one fixed
/// colour, at any size and scale.
class TemplateIconEngine final : public QIconEngine {
public:
    TemplateIconEngine(QString name, std::shared_ptr<TintedPictures> pictures,
                       std::optional<QColor> colour = std::nullopt);

    /// Whether a mask of this name is embedded.
    static bool isEmbedded(const QString& name);

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override;
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
    QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state,
                         qreal scale) override;
    QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) override;
    bool isNull() override { return false; }
    QIconEngine* clone() const override { return new TemplateIconEngine(*this); }

private:
    QPixmap picture(int pixels, QIcon::Mode mode);

    QString m_name;
    std::shared_ptr<TintedPictures> m_pictures;
    std::optional<QColor> m_colour;
};

} // namespace quorvel
