#include "ui/popover/PopoverPanel.h"

#include <QAction>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QStyle>

#include <algorithm>

namespace quorvel {

namespace {

constexpr int fieldEdge = 10;
constexpr int fieldRounding = 8;
constexpr int fieldInset = 4;

Qt::WindowFlags flags(const PopoverPanel* root) {
    return Qt::WindowFlags(root ? Qt::ToolTip : Qt::Popup) | Qt::FramelessWindowHint |
           Qt::NoDropShadowWindowHint;
}

} // namespace

PopoverPanel::PopoverPanel(const PopoverContext& context, PanelFrame::Shape shape,
                           PopoverPanel* root)
    : QWidget(root, flags(root))
    , m_context(context)
    , m_frame(shape)
    , m_list(new PopoverList(context, this)) {
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_X11NetWmWindowTypePopupMenu);
    setAttribute(Qt::WA_AcceptTouchEvents);
    setAttribute(Qt::WA_TranslucentBackground, shape == PanelFrame::Shape::blended);
    setAttribute(Qt::WA_OpaquePaintEvent, shape == PanelFrame::Shape::square);
    setMouseTracking(true);
    if (!root)
        addSearchField();
}

void PopoverPanel::addSearchField() {
    m_list->reservePictures();
    m_field = new SearchField(this, m_context.pasteboard);
    m_field->setFrame(false);
    m_field->setClearButtonEnabled(false);
    m_magnifier = m_field->addAction(QIcon(), QLineEdit::LeadingPosition);
    m_clear = m_field->addAction(QIcon(), QLineEdit::TrailingPosition);
    m_clear->setVisible(false);
    connect(m_clear, &QAction::triggered, m_field, &QLineEdit::clear);
    connect(m_field, &QLineEdit::textChanged, m_clear,
            [this](const QString& text) { m_clear->setVisible(!text.isEmpty()); });
    connect(m_field, &SearchField::changedByUser, this, &PopoverPanel::searchChanged);
    dressSearchField();
}

/// The field's ground is painted by the panel.
void PopoverPanel::dressSearchField() {
    const QScopedValueRollback dressing(m_isDressing, true);
    const PopoverColors colors(palette());
    QPalette own = palette();
    own.setColor(QPalette::Base, Qt::transparent);
    own.setColor(QPalette::PlaceholderText, colors.quiet);
    m_field->setPalette(own);
    m_field->setFont(m_list->metrics().search);
    m_magnifier->setIcon(m_context.icons.symbol(QStringLiteral("magnifyingglass"), colors.quiet));
    m_clear->setIcon(m_context.icons.symbol(QStringLiteral("xmark.circle.fill"), colors.quiet));
}

void PopoverPanel::setItems(const QList<MenuItem>& items) {
    if (m_field)
        showSearch(items);
    m_list->setItems(items);
    layOut();
}

void PopoverPanel::setName(const QString& name) {
    setAccessibleName(name);
    m_list->setAccessibleName(name);
}

/// What is typed is never replaced while the panel is shown.
void PopoverPanel::showSearch(const QList<MenuItem>& items) {
    const auto search = std::find_if(items.begin(), items.end(), [](const MenuItem& item) {
        return item.kind == MenuItemKind::searchField;
    });
    const bool hadSearch = std::exchange(m_hasSearch, search != items.end());
    if (m_hasSearch && !(hadSearch && isVisible()))
        m_field->showText(search->representedObject);
    else if (!m_hasSearch)
        m_field->showText({});
    m_field->setVisible(m_hasSearch);
    setFocusProxy(m_hasSearch ? m_field : nullptr);
    if (!m_hasSearch)
        return;
    m_field->setAlignment(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft) |
                          Qt::AlignAbsolute | Qt::AlignVCenter);
    m_field->setPlaceholderText(search->title);
    m_field->setAccessibleName(search->title);
    if (isVisible() && !m_field->hasFocus())
        m_field->setFocus(Qt::PopupFocusReason);
}

QSize PopoverPanel::wantedSize() {
    const int width = m_field ? PopoverMetrics::width : submenuWidth();
    return {width,
            std::min(head() + m_list->wantedHeight(width - 2) + 3, PopoverMetrics::mostHeight)};
}

/// As wide as its rows ask for; while it is shown, it never gets narrower.
int PopoverPanel::submenuWidth() {
    m_widest =
        std::max(m_widest, std::clamp(m_list->wantedWidth() + 2, PopoverMetrics::leastSubmenuWidth,
                                      PopoverMetrics::mostSubmenuWidth));
    return m_widest;
}

int PopoverPanel::head() const {
    return m_hasSearch ? m_list->metrics().searchArea : 1;
}

QRect PopoverPanel::fieldRect() const {
    const QRect panel = panelRect();
    return {panel.left() + fieldEdge, panel.top() + fieldEdge, panel.width() - 2 * fieldEdge,
            m_list->metrics().searchField};
}

void PopoverPanel::layOut() {
    m_list->setGeometry(panelRect().adjusted(1, head(), -1, -2));
    if (m_field)
        m_field->setGeometry(fieldRect().adjusted(fieldInset, 0, -fieldInset, 0));
}

bool PopoverPanel::event(QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
        event->accept();
        emit pointed(*event);
        return true;
    default:
        return QWidget::event(event);
    }
}

void PopoverPanel::keyPressEvent(QKeyEvent* event) {
    emit keyPressed(*event);
}

void PopoverPanel::keyReleaseEvent(QKeyEvent* event) {
    emit keyReleased(*event);
}

void PopoverPanel::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const PopoverColors colors(palette());
    const QRect panel = panelRect();
    m_frame.paint(painter, panel, event->rect(), colors);
    if (!m_hasSearch)
        return;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(panel.left() + 1, panel.top() + head() - 1, panel.width() - 2, 1, colors.line);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colors.field);
    painter.drawRoundedRect(fieldRect(), fieldRounding, fieldRounding);
}

void PopoverPanel::resizeEvent(QResizeEvent* /*event*/) {
    layOut();
}

void PopoverPanel::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    m_widest = 0;
    m_list->motion().stop();
    m_list->releaseScrollBar();
    m_list->setScrollBarHovered(false);
    emit hidden();
}

void PopoverPanel::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    const bool isLook =
        event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange;
    if (m_field && isLook && !m_isDressing)
        dressSearchField();
}

} // namespace quorvel
