#include "ui/recorder/ChordField.h"

#include "ui/popover/PopoverColors.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyle>

#include <algorithm>
#include <numeric>

namespace quorvel {

namespace {

constexpr int leastWidth = 190;
constexpr int margin = 8;
constexpr int capPadding = 7; ///< Beside the text of a cap.
constexpr int capHeightAround = 6;
constexpr int capGap = 4;
constexpr int fieldHeightAround = 10; ///< Above and below the caps together.
constexpr qreal rounding = 6;
constexpr qreal capRounding = 4;
constexpr qreal ringWidth = 2;
constexpr float disabledOpacity = 0.5F;

} // namespace

ChordField::ChordField(Reader reader)
    : m_reader(std::move(reader)) {
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void ChordField::show(const QStringList& caps, const QString& text) {
    m_caps = caps;
    m_behind = text;
    updateGeometry();
    update();
}

void ChordField::setRecording(bool isRecording) {
    if (m_isRecording == isRecording)
        return;
    m_isRecording = isRecording;
    if (isRecording)
        grabKeyboard(); // The hot keys of other programs can be pressed, too, without starting
                        // them.
    else
        releaseKeyboard();
    update();
}

QSize ChordField::sizeHint() const {
    const int text = m_behind.isEmpty() ? 0 : fontMetrics().horizontalAdvance(m_behind) + capGap;
    const int width = std::max(leastWidth, 2 * margin + capsWidth() + text);
    return {width, fontMetrics().height() + capHeightAround + fieldHeightAround};
}

bool ChordField::event(QEvent* event) {
    if (!m_isRecording)
        return QAbstractButton::event(event);
    switch (event->type()) {
    case QEvent::ShortcutOverride: // Else the window's own shortcuts would be carried out.
        event->accept();
        return true;
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        if (m_reader(static_cast<QKeyEvent&>(*event))) {
            event->accept();
            return true;
        }
        break;
    default:
        break;
    }
    return QAbstractButton::event(event);
}

void ChordField::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
        return QAbstractButton::keyPressEvent(event);
    if (!event->isAutoRepeat())
        click();
}

void ChordField::focusInEvent(QFocusEvent* event) {
    QAbstractButton::focusInEvent(event);
    update();
}

void ChordField::focusOutEvent(QFocusEvent* event) {
    QAbstractButton::focusOutEvent(event);
    emit left();
    update();
}

void ChordField::hideEvent(QHideEvent* event) {
    QAbstractButton::hideEvent(event);
    emit left();
}

void ChordField::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(isEnabled() ? 1.0 : qreal(disabledOpacity));
    paintGround(painter);
    const QRect inside = rect().adjusted(margin, 0, -margin, 0);
    const int used = m_caps.isEmpty() ? 0 : paintCaps(painter, inside) + capGap;
    QRect rest = inside;
    rest.setLeft(inside.left() + used);
    const PopoverColors colors(palette());
    painter.setPen(colors.quiet);
    const QRect place = QStyle::visualRect(layoutDirection(), inside, rest);
    const QString text = fontMetrics().elidedText(m_behind, Qt::ElideRight, place.width());
    painter.drawText(place,
                     int(Qt::AlignVCenter) |
                         int(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft)),
                     text);
}

void ChordField::paintGround(QPainter& painter) const {
    const PopoverColors colors(palette());
    const bool isRinged = hasFocus() || m_isRecording;
    const qreal width = isRinged ? ringWidth : 1;
    const bool isPointedAt = underMouse() && isEnabled();
    painter.setPen(QPen(isRinged      ? colors.highlight
                        : isPointedAt ? colors.faint
                                      : colors.border,
                        width));
    painter.setBrush(m_isRecording ? colors.trail : colors.ground);
    const qreal inset = width / 2;
    painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), rounding,
                            rounding);
}

/// In the order in which they are pressed, also where writing goes from right to left. Returns the
/// width that they take.
int ChordField::paintCaps(QPainter& painter, const QRect& place) const {
    const int width = std::min(capsWidth(), place.width());
    const QRect group = QStyle::visualRect(layoutDirection(), place,
                                           QRect(place.topLeft(), QSize(width, place.height())));
    QRect cap(0, 0, 0, fontMetrics().height() + capHeightAround);
    cap.moveCenter(place.center());
    cap.moveLeft(group.left());
    for (const QString& text : m_caps) {
        cap.setWidth(capWidth(text));
        paintCap(painter, cap, text);
        cap.moveLeft(cap.left() + cap.width() + capGap);
    }
    return width;
}

void ChordField::paintCap(QPainter& painter, const QRect& place, const QString& text) const {
    const PopoverColors colors(palette());
    painter.setPen(QPen(colors.border, 1));
    painter.setBrush(colors.field);
    painter.drawRoundedRect(QRectF(place).adjusted(0.5, 0.5, -0.5, -0.5), capRounding, capRounding);
    painter.setPen(colors.text);
    painter.drawText(place, Qt::AlignCenter, text);
}

int ChordField::capWidth(const QString& text) const {
    const int height = fontMetrics().height() + capHeightAround;
    return std::max(height, fontMetrics().horizontalAdvance(text) + 2 * capPadding);
}

int ChordField::capsWidth() const {
    const int gaps = std::max(0, int(m_caps.size()) - 1) * capGap;
    return std::accumulate(m_caps.begin(), m_caps.end(), gaps,
                           [this](int sum, const QString& cap) { return sum + capWidth(cap); });
}

} // namespace quorvel
