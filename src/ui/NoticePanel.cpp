#include "ui/NoticePanel.h"

#include "ui/Icons.h"

#include <QCursor>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QPaintEvent>
#include <QScreen>

namespace quorvel {

namespace {

constexpr int inset = 14;
constexpr int gap = 12;
constexpr int iconSide = 24;
constexpr int mostTextWidth = 360;
constexpr int fromBottom = 6; ///< Parts of the screen's height between the panel and its bottom.

QString elided(const QLabel& label, const QString& text) {
    return label.fontMetrics().elidedText(text, Qt::ElideRight, mostTextWidth);
}

void setColour(QLabel& label, const QColor& colour) {
    QPalette palette = label.palette();
    palette.setColor(QPalette::WindowText, colour);
    label.setPalette(palette);
}

} // namespace

NoticePanel::NoticePanel(const Icons& icons)
    : QWidget(nullptr, Qt::ToolTip | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint |
                           Qt::WindowDoesNotAcceptFocus | Qt::WindowTransparentForInput)
    , m_icons(icons)
    , m_frame(isComposited() ? PanelFrame::Shape::blended : PanelFrame::Shape::square)
    , m_icon(new QLabel(this))
    , m_title(new QLabel(this))
    , m_detail(new QLabel(this))
    , m_fade(this, QByteArrayLiteral("windowOpacity")) {
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_TranslucentBackground, m_frame.shape() == PanelFrame::Shape::blended);
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(m_frame.margins() + QMargins(inset, inset, inset, inset));
    layout->setHorizontalSpacing(gap);
    layout->setVerticalSpacing(2);
    layout->addWidget(m_icon, 0, 0, 2, 1, Qt::AlignVCenter);
    layout->addWidget(m_title, 0, 1);
    layout->addWidget(m_detail, 1, 1);
    for (QLabel* label : {m_title, m_detail})
        label->setTextFormat(Qt::PlainText);
    QFont bold = m_title->font();
    bold.setBold(true);
    m_title->setFont(bold);
    m_dismissal.setSingleShot(true);
    connect(&m_dismissal, &QTimer::timeout, this, &NoticePanel::goAway);
    connect(&m_fade, &QPropertyAnimation::finished, this, &NoticePanel::hide);
}

void NoticePanel::present(const Notice& notice) {
    m_fade.stop();
    setWindowOpacity(1);
    fill(notice);
    place();
    show();
    raise();
    m_dismissal.start(shownMilliseconds);
}

void NoticePanel::fill(const Notice& notice) {
    dress();
    const QIcon icon = m_icons.symbol(notice.symbol, PopoverColors(palette()).text);
    m_icon->setPixmap(icon.pixmap(QSize(iconSide, iconSide), devicePixelRatioF()));
    m_title->setText(elided(*m_title, notice.title));
    m_detail->setText(elided(*m_detail, notice.detail));
    m_detail->setHidden(notice.detail.isEmpty());
    setAccessibleName(notice.title);
    setAccessibleDescription(notice.detail);
}

void NoticePanel::dress() {
    setPalette(QGuiApplication::palette());
    const PopoverColors colors(palette());
    setColour(*m_title, colors.text);
    setColour(*m_detail, colors.quiet);
}

void NoticePanel::place() {
    adjustSize();
    const QScreen* pointed = QGuiApplication::screenAt(QCursor::pos());
    const QRect limits =
        (pointed ? pointed : QGuiApplication::primaryScreen())->availableGeometry();
    QRect panel(QPoint(), size());
    panel.moveCenter(limits.center());
    panel.moveBottom(limits.bottom() - limits.height() / fromBottom);
    move(panel.topLeft());
}

void NoticePanel::goAway() {
    m_fade.setDuration(fadeMilliseconds);
    m_fade.setStartValue(1.0);
    m_fade.setEndValue(0.0);
    m_fade.start();
}

void NoticePanel::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    m_frame.paint(painter, rect().marginsRemoved(m_frame.margins()), event->rect(),
                  PopoverColors(palette()));
}

} // namespace quorvel
