#include "ui/popover/PopoverPanel.h"

#include <QBitmap>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace quorvel {

namespace {

constexpr int fieldEdge = 10;
constexpr int fieldHeight = 34;

Qt::WindowFlags flags(PopoverPanel::Level level) {
    const Qt::WindowType type = level == PopoverPanel::Level::root ? Qt::Popup : Qt::ToolTip;
    return Qt::WindowFlags(type) | Qt::FramelessWindowHint;
}

QRegion rounded(const QSize& size) {
    QBitmap mask(size);
    mask.clear();
    QPainter painter(&mask);
    painter.setBrush(Qt::color1);
    painter.setPen(Qt::color1);
    painter.drawRoundedRect(QRect(QPoint(), size - QSize(1, 1)), PopoverMetrics::rounding,
                            PopoverMetrics::rounding);
    painter.end();
    return {mask};
}

} // namespace

PopoverPanel::PopoverPanel(const PopoverContext& context, Level level)
    : QWidget(nullptr, flags(level))
    , m_level(level)
    , m_list(new PopoverList(context, this)) {
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_NoMouseReplay);
    setMouseTracking(true);
    m_list->setAttribute(Qt::WA_TransparentForMouseEvents);
    if (level == Level::submenu)
        return;
    m_field = new SearchField(this);
    m_field->setFrame(false);
    m_field->installEventFilter(this);
    connect(m_field, &SearchField::changedByUser, this, &PopoverPanel::searchChanged);
    m_field->addAction(context.icons.symbol(QStringLiteral("magnifyingglass")),
                       QLineEdit::LeadingPosition);
    styleField();
}

void PopoverPanel::setItems(const QList<MenuItem>& items) {
    const auto search = std::find_if(items.begin(), items.end(), [](const MenuItem& item) {
        return item.kind == MenuItemKind::searchField;
    });
    m_hasSearch = m_field && search != items.end();
    if (m_field) {
        m_field->setVisible(m_hasSearch);
        if (m_hasSearch)
            m_field->setPlaceholderText(search->title);
    }
    layOut();
    m_list->setItems(items, wantedWidth());
}

SearchField* PopoverPanel::searchField() const {
    return m_hasSearch ? m_field : nullptr;
}

int PopoverPanel::wantedWidth() const {
    return m_level == Level::root ? PopoverMetrics::width : PopoverMetrics::submenuWidth;
}

int PopoverPanel::headHeight() const {
    return m_hasSearch ? PopoverMetrics::searchHeight : PopoverMetrics::edge;
}

QSize PopoverPanel::wantedSize() const {
    const int wanted = headHeight() + m_list->rows().height() + PopoverMetrics::edge;
    return {wantedWidth(), std::min(wanted, PopoverMetrics::mostHeight)};
}

bool PopoverPanel::event(QEvent* event) {
    switch (event->type()) {
    case QEvent::KeyPress:
        emit keyPressed(static_cast<QKeyEvent*>(event));
        return true;
    case QEvent::KeyRelease:
        emit keyReleased(static_cast<QKeyEvent*>(event));
        return true;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove:
    case QEvent::Wheel:
        emit pointerEvent(event);
        return true;
    default:
        return QWidget::event(event);
    }
}

/// Keys go to the whole popover first, which hands back what is typing; Tab never moves the focus.
bool PopoverPanel::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress)
        emit keyPressed(static_cast<QKeyEvent*>(event));
    else if (event->type() == QEvent::KeyRelease)
        emit keyReleased(static_cast<QKeyEvent*>(event));
    else if (event->type() == QEvent::ShortcutOverride)
        event->accept();
    else
        return QWidget::eventFilter(watched, event);
    return true;
}

void PopoverPanel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const PopoverColors colors(palette());
    painter.fillRect(rect(), colors.ground);
    painter.setRenderHint(QPainter::Antialiasing);
    if (m_hasSearch) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(colors.field);
        painter.drawRoundedRect(m_field->geometry(), 7, 7);
    }
    painter.setPen(QPen(colors.border, 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), PopoverMetrics::rounding,
                            PopoverMetrics::rounding);
}

void PopoverPanel::resizeEvent(QResizeEvent* /*event*/) {
    layOut();
    setMask(rounded(size()));
}

void PopoverPanel::layOut() {
    const int head = headHeight();
    m_list->setGeometry(1, head, width() - 2, std::max(0, height() - head - PopoverMetrics::edge));
    if (m_field)
        m_field->setGeometry(fieldEdge, fieldEdge - 1, width() - 2 * fieldEdge, fieldHeight);
}

void PopoverPanel::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    emit wentAway();
}

void PopoverPanel::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && m_field)
        styleField();
}

/// The field's ground is painted by the panel.
void PopoverPanel::styleField() {
    QPalette colors = palette();
    colors.setColor(QPalette::Base, Qt::transparent);
    m_field->setPalette(colors);
}

} // namespace quorvel
