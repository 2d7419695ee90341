#include "ui/ItemIcons.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>

#include <algorithm>

namespace quorvel {

namespace {

/// Draws at the size it is asked for, so that it is sharp at any scale.
class DrawnIcon : public QIconEngine {
public:
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return picture;
    }
    bool isNull() override { return false; }
};

class Swatch final : public DrawnIcon {
public:
    explicit Swatch(const QColor& colour)
        : m_colour(colour) {}

    QSize actualSize(const QSize& size, QIcon::Mode /*mode*/, QIcon::State /*state*/) override {
        const int side = std::min(size.width(), size.height());
        return {side, side};
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode,
               QIcon::State /*state*/) override {
        constexpr qreal rounding = 4;
        QColor line = QGuiApplication::palette().color(QPalette::Text);
        line.setAlphaF(0.35F);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setOpacity(mode == QIcon::Disabled ? 0.5 : 1);
        painter->setPen(QPen(line, 1));
        painter->setBrush(m_colour);
        painter->drawRoundedRect(QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5), rounding, rounding);
        painter->restore();
    }

    QIconEngine* clone() const override { return new Swatch(*this); }

private:
    QColor m_colour;
};

class Pinned final : public DrawnIcon {
public:
    Pinned(const QIcon& icon, const QIcon& pin)
        : m_icon(icon)
        , m_pin(pin) {}

    QSize actualSize(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        return m_icon.actualSize(size, mode, state).expandedTo({size.height(), size.height()});
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode,
               QIcon::State state) override {
        m_icon.paint(painter, rect, Qt::AlignCenter, mode, state);
        const qreal side = rect.height() * 0.66;
        QRectF badge(0, 0, side, side);
        badge.moveBottomRight(QRectF(rect).bottomRight() + QPointF(2, 2));
        const auto ground = mode == QIcon::Selected ? QPalette::Highlight : QPalette::Base;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(Qt::NoPen);
        painter->setBrush(QGuiApplication::palette().color(ground));
        painter->drawEllipse(badge);
        painter->restore();
        m_pin.paint(painter, badge.adjusted(1, 1, -1, -1).toAlignedRect(), Qt::AlignCenter, mode,
                    state);
    }

    QIconEngine* clone() const override { return new Pinned(*this); }

private:
    QIcon m_icon;
    QIcon m_pin;
};

} // namespace

QIcon swatchIcon(const QColor& colour) {
    return QIcon(new Swatch(colour));
}

QIcon pinnedIcon(const QIcon& icon, const QIcon& pin) {
    if (icon.isNull())
        return pin;
    QIcon pinned(new Pinned(icon, pin));
    pinned.setIsMask(icon.isMask());
    return pinned;
}

} // namespace quorvel
