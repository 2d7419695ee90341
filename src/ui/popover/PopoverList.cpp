#include "ui/popover/PopoverList.h"

#include "menu/KeyNames.h"
#include "ui/popover/PopoverAccessible.h"

#include <QPaintEvent>

#include <algorithm>

namespace quorvel {

namespace {

constexpr int barWidth = 5;
constexpr int wideBarWidth = 8;
constexpr int barReach = 13; ///< What belongs to the scroll bar at the end of the rows.
constexpr int leastBarLength = 30;
constexpr qsizetype mostMeasuredUnits = 100;
constexpr int mostMeasuredRows = 60;

} // namespace

PopoverList::PopoverList(const PopoverContext& context, QWidget* parent)
    : QWidget(parent)
    , m_context(context)
    , m_metrics(font())
    , m_motion(this) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    connect(&m_motion, &ScrollMotion::moved, this, &PopoverList::scrollBy);
}

void PopoverList::setItems(const QList<MenuItem>& items) {
    const Mark highlighted = mark(m_highlighted);
    const Mark open = mark(m_openRow);
    const int seen =
        highlighted.row != PopoverRows::none ? highlighted.row : m_rows.nearest(qRound(m_offset));
    const Mark anchor = mark(seen);
    const qreal place = seen == PopoverRows::none ? 0 : m_rows.top(seen) - m_offset;
    m_rows.set(items);
    layOutRows(width());
    m_highlighted = rowOf(highlighted);
    m_openRow = rowOf(open);
    if (const int row = rowOf(anchor); row != PopoverRows::none && m_offset > 0)
        m_offset = m_rows.top(row) - place;
    setOffset(m_offset);
    update();
    announceRows(*this);
    if (m_highlighted != highlighted.row)
        emit highlightChanged(m_highlighted);
}

bool PopoverList::fillSubmenu(const QString& identifier, const QList<MenuItem>& items) {
    return m_rows.fillSubmenu(identifier, items);
}

PopoverList::Mark PopoverList::mark(int row) const {
    if (row == PopoverRows::none)
        return {};
    return {row, m_rows.item(row), m_rows.occurrence(row)};
}

int PopoverList::rowOf(const Mark& mark) const {
    return mark.row == PopoverRows::none ? PopoverRows::none
                                         : m_rows.find(mark.item, mark.occurrence);
}

void PopoverList::layOutRows(int width) {
    m_laidOutWidth = width;
    m_rows.layOut(m_metrics, width - 2 * (PopoverMetrics::edge + PopoverMetrics::padding));
}

int PopoverList::wantedWidth() const {
    const QFontMetrics titles(m_metrics.title);
    int widest = 0;
    for (int row = 0; row < std::min(m_rows.count(), mostMeasuredRows); ++row) {
        const MenuItem& item = m_rows.item(row);
        const QString keys = keyEquivalentText(item.keyEquivalent, m_context.strings);
        const int end =
            item.hasSubmenu() || item.isPinned ? PopoverMetrics::markSize + PopoverMetrics::gap : 0;
        int asked = titles.horizontalAdvance(item.title.left(mostMeasuredUnits)) + end;
        if (!keys.isEmpty())
            asked += titles.horizontalAdvance(keys) + PopoverMetrics::gap;
        widest = std::max(widest, asked);
    }
    return widest + iconColumn() +
           2 * (PopoverMetrics::edge + PopoverMetrics::padding + PopoverMetrics::gap);
}

int PopoverList::wantedHeight(int width) {
    if (width != m_laidOutWidth)
        layOutRows(width);
    return m_rows.height() + 2 * PopoverMetrics::edge;
}

void PopoverList::highlight(int row, Reveal revealing) {
    if (row != PopoverRows::none && revealing == Reveal::yes)
        reveal(row);
    if (std::exchange(m_highlighted, row) == row)
        return;
    update();
    announceHighlight(*this);
    emit highlightChanged(row);
}

/// With what belongs to it: the header above the first row.
void PopoverList::reveal(int row) {
    m_motion.stop();
    const bool isFirst = row == m_rows.first();
    const qreal least = m_rows.top(row) + m_rows.height(row) + 2 * PopoverMetrics::edge - height();
    const qreal most = isFirst ? 0 : m_rows.top(row);
    setOffset(std::min(std::max(m_offset, least), most));
}

void PopoverList::setOpenRow(int row) {
    if (std::exchange(m_openRow, row) != row)
        update();
}

void PopoverList::setActive(bool isActive) {
    if (std::exchange(m_isActive, isActive) != isActive)
        update();
}

int PopoverList::rowAt(const QPoint& place) const {
    if (!rect().contains(place))
        return PopoverRows::none;
    return m_rows.rowAt(place.y() - PopoverMetrics::edge + qRound(m_offset));
}

int PopoverList::top(int row) const {
    return m_rows.top(row) + PopoverMetrics::edge - qRound(m_offset);
}

QRect PopoverList::placeOf(int row) const {
    return {0, top(row), width(), m_rows.height(row)};
}

void PopoverList::scrollBy(qreal points) {
    setOffset(m_offset + points);
}

qreal PopoverList::mostOffset() const {
    return std::max(0, m_rows.height() + 2 * PopoverMetrics::edge - height());
}

void PopoverList::setOffset(qreal offset) {
    offset = std::clamp<qreal>(offset, 0, mostOffset());
    if (std::exchange(m_offset, offset) == offset)
        return;
    update();
    emit scrolled();
}

int PopoverList::rowOfNextPage(int direction) const {
    const int page = std::max(m_metrics.doubleRow, height() - m_metrics.doubleRow);
    const int from =
        m_highlighted == PopoverRows::none ? qRound(m_offset) : m_rows.top(m_highlighted);
    const int row = m_rows.nearest(from + direction * page);
    if (row != m_highlighted)
        return row;
    return direction > 0 ? m_rows.last() : m_rows.first();
}

QRect PopoverList::scrollBar() const {
    if (mostOffset() <= 0)
        return {};
    const int room = height() - 4;
    const qreal share = height() / (m_rows.height() + 2.0 * PopoverMetrics::edge);
    const int length = std::min(room, std::max(leastBarLength, qRound(room * share)));
    const int start = 2 + qRound((room - length) * m_offset / mostOffset());
    const int thickness = m_isBarHovered || m_barGrip ? wideBarWidth : barWidth;
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    return {isMirrored ? 1 : width() - thickness - 1, start, thickness, length};
}

bool PopoverList::isOnScrollBar(const QPoint& place) const {
    if (scrollBar().isNull() || !rect().contains(place))
        return false;
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    return isMirrored ? place.x() < barReach : place.x() >= width() - barReach;
}

void PopoverList::pressScrollBar(const QPoint& place) {
    const QRect bar = scrollBar();
    const bool isOnHandle = place.y() >= bar.top() && place.y() <= bar.bottom();
    m_barGrip = isOnHandle ? place.y() - bar.top() : bar.height() / 2;
    m_motion.stop();
    dragScrollBar(place);
    update();
}

void PopoverList::dragScrollBar(const QPoint& place) {
    if (!m_barGrip)
        return;
    const int room = std::max(1, height() - 4 - scrollBar().height());
    setOffset((place.y() - *m_barGrip - 2) * mostOffset() / room);
}

void PopoverList::releaseScrollBar() {
    m_barGrip.reset();
    update();
}

void PopoverList::setScrollBarHovered(bool isHovered) {
    if (std::exchange(m_isBarHovered, isHovered) != isHovered)
        update();
}

void PopoverList::resizeEvent(QResizeEvent* /*event*/) {
    if (width() != m_laidOutWidth)
        layOutRows(width());
    setOffset(m_offset);
}

void PopoverList::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() != QEvent::FontChange)
        return;
    m_metrics = PopoverMetrics(font());
    layOutRows(width());
    setOffset(m_offset);
}

int PopoverList::iconColumn() const {
    if (m_reservesPictures || m_rows.hasPictures())
        return PopoverMetrics::picture.width();
    return m_rows.hasIcons() ? PopoverMetrics::narrowIcons : 0;
}

RowState PopoverList::stateOf(int row) const {
    if (row == m_highlighted)
        return m_isActive ? RowState::highlighted : RowState::trail;
    return row == m_openRow ? RowState::trail : RowState::plain;
}

void PopoverList::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const PopoverColors colors(palette());
    paintRows(painter, event->rect(), colors);
    paintScrollBar(painter, colors);
    if (std::exchange(m_awaitsFrame, false))
        QMetaObject::invokeMethod(this, &PopoverList::painted, Qt::QueuedConnection);
}

void PopoverList::paintRows(QPainter& painter, const QRect& part, const PopoverColors& colors) {
    RowPainter rows(painter, {m_context, m_metrics, colors, iconColumn(), layoutDirection()});
    const int start = part.top() - PopoverMetrics::edge + qRound(m_offset);
    for (int row = std::max(0, m_rows.rowAt(std::max(0, start)));
         row < m_rows.count() && top(row) <= part.bottom(); ++row)
        if (m_rows.isEmptyState(row))
            rows.paintEmptyState(m_rows.item(row), m_rows.count() == 1 ? rect() : placeOf(row));
        else
            rows.paint(m_rows.item(row), placeOf(row), stateOf(row));
}

void PopoverList::paintScrollBar(QPainter& painter, const PopoverColors& colors) {
    const QRect bar = scrollBar();
    if (bar.isNull())
        return;
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_barGrip ? colors.heldScrollBar : colors.scrollBar);
    painter.drawRoundedRect(bar, bar.width() / 2.0, bar.width() / 2.0);
}

} // namespace quorvel
