#include "ui/popover/PopoverList.h"

#include <QPaintEvent>

#include <algorithm>

namespace quorvel {

namespace {

constexpr int barWidth = 5;
constexpr int barGrasp = 12; ///< Points at the end of the rows that belong to the scroll bar.
constexpr int leastBar = 28;

} // namespace

PopoverList::PopoverList(const PopoverContext& context, QWidget* parent)
    : QWidget(parent)
    , m_context(context) {
    setMouseTracking(true);
    setFocusPolicy(Qt::NoFocus);
}

void PopoverList::setItems(const QList<MenuItem>& items, int width) {
    const bool hadHighlight = m_highlighted != PopoverRows::none;
    const MenuItem item = hadHighlight ? m_rows.at(m_highlighted).item : MenuItem{};
    const int before = hadHighlight ? m_rows.at(m_highlighted).top - m_offset : 0;
    m_rows.set(items, PopoverMetrics(font()), width);
    m_highlighted = hadHighlight ? m_rows.find(item) : PopoverRows::none;
    m_openSubmenu = PopoverRows::none;
    setOffset(m_highlighted == PopoverRows::none ? m_offset
                                                 : m_rows.at(m_highlighted).top - before);
    update();
    if (hadHighlight)
        emit highlightChanged(m_highlighted);
}

void PopoverList::highlight(int row, Reveal reveal) {
    if (row != PopoverRows::none && reveal == Reveal::yes) {
        const PopoverRow& shown = m_rows.at(row);
        const int top = row == m_rows.first() ? 0 : shown.top;
        setOffset(std::clamp(m_offset, shown.top + shown.height - height(), top));
    }
    if (std::exchange(m_highlighted, row) == row)
        return;
    update();
    emit highlightChanged(row);
}

void PopoverList::setOpenSubmenu(int row) {
    if (std::exchange(m_openSubmenu, row) != row)
        update();
}

bool PopoverList::fillSubmenu(const QString& identifier, const QList<MenuItem>& items) {
    const int row = m_rows.findSubmenu(identifier);
    if (row == PopoverRows::none)
        return false;
    m_rows.fill(row, items);
    return true;
}

int PopoverList::rowAt(const QPoint& place) const {
    return rect().contains(place) ? m_rows.rowAt(place.y() + m_offset) : PopoverRows::none;
}

QRect PopoverList::placeOf(int row) const {
    const PopoverRow& shown = m_rows.at(row);
    return {0, shown.top - m_offset, width(), shown.height};
}

void PopoverList::scrollBy(int points) {
    setOffset(m_offset + points);
}

void PopoverList::scrollToStart() {
    setOffset(0);
}

int PopoverList::rowsPerPage() const {
    return std::max(1, height() / PopoverMetrics(font()).doubleRow - 1);
}

int PopoverList::mostOffset() const {
    return std::max(0, m_rows.height() - height());
}

void PopoverList::setOffset(int offset) {
    offset = std::clamp(offset, 0, mostOffset());
    if (std::exchange(m_offset, offset) != offset)
        update();
}

QRect PopoverList::scrollBarPlace() const {
    if (mostOffset() == 0)
        return {};
    const int length =
        std::max(leastBar, int(qint64(height()) * height() / std::max(1, m_rows.height())));
    const int top = int(qint64(height() - length) * m_offset / mostOffset());
    const int left = layoutDirection() == Qt::RightToLeft ? 1 : width() - barWidth - 1;
    return {left, top, barWidth, length};
}

bool PopoverList::pressScrollBar(const QPoint& place) {
    const QRect bar = scrollBarPlace();
    const bool isAtEnd = layoutDirection() == Qt::RightToLeft ? place.x() < barGrasp
                                                              : place.x() >= width() - barGrasp;
    if (bar.isNull() || !isAtEnd || !rect().contains(place))
        return false;
    const bool isOnBar = place.y() >= bar.top() && place.y() <= bar.bottom();
    m_barGrip = isOnBar ? place.y() - bar.top() : bar.height() / 2;
    return dragScrollBar(place);
}

bool PopoverList::dragScrollBar(const QPoint& place) {
    if (!m_barGrip)
        return false;
    const int room = std::max(1, height() - scrollBarPlace().height());
    setOffset(int(qint64(place.y() - *m_barGrip) * mostOffset() / room));
    return true;
}

void PopoverList::resizeEvent(QResizeEvent* /*event*/) {
    setOffset(m_offset);
}

RowState PopoverList::stateOf(int row) const {
    if (row == m_openSubmenu && row != m_highlighted)
        return RowState::submenuOpen;
    return row == m_highlighted ? RowState::highlighted : RowState::plain;
}

void PopoverList::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const PopoverColors colors(palette());
    const PopoverMetrics metrics(font());
    RowPainter rows(painter, m_context, metrics, colors, layoutDirection());
    const int bottom = event->rect().bottom();
    for (int row = std::max(0, m_rows.rowAt(event->rect().top() + m_offset));
         row < m_rows.count() && placeOf(row).top() <= bottom; ++row)
        rows.paint(m_rows.at(row), placeOf(row), stateOf(row));
    if (const QRect bar = scrollBarPlace(); !bar.isNull()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(colors.scrollBar);
        painter.drawRoundedRect(bar, barWidth / 2.0, barWidth / 2.0);
    }
    if (std::exchange(m_awaitsPaint, false))
        QMetaObject::invokeMethod(this, &PopoverList::painted, Qt::QueuedConnection);
}

} // namespace quorvel
