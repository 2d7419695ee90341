#include "ui/popover/PopoverTip.h"

#include "ui/MenuText.h"

#include <QAbstractTextDocumentLayout>
#include <QPaintEvent>
#include <QTextDocument>

#include <cmath>

namespace quorvel {

namespace {

constexpr int delayMilliseconds = 750;
constexpr int mostWidth = 380;
constexpr int inset = 10;
constexpr int gap = 6;

/// Whether there is more to read than the row shows.
bool saysMore(const MenuItem& item) {
    return !item.toolTip.isEmpty() && item.toolTip.simplified() != item.title.simplified();
}

} // namespace

/// Looks like a small panel.
class TipWindow final : public QWidget {
public:
    TipWindow(QWidget* parent, PanelFrame::Shape shape)
        : QWidget(parent, Qt::ToolTip | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint)
        , m_frame(shape) {
        setAttribute(Qt::WA_ShowWithoutActivating);
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setAttribute(Qt::WA_TranslucentBackground, shape == PanelFrame::Shape::blended);
    }

    /// Each returns the size of the panel without its shadow.
    QSize setText(const QString& text) {
        QTextOption option;
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        m_text.setDefaultTextOption(option);
        m_text.setDocumentMargin(0);
        m_text.setDefaultFont(PopoverMetrics(font()).detail);
        m_text.setDefaultStyleSheet(QStringLiteral("p { margin: 0 }"));
        m_text.setHtml(toolTipMarkup(text));
        m_text.setTextWidth(std::min<qreal>(mostWidth, std::ceil(m_text.idealWidth())));
        return padded(m_text.size().toSize() + QSize(1, 0));
    }
    QSize setPicture(QPixmap picture) {
        picture.setDevicePixelRatio(devicePixelRatioF());
        m_picture = picture;
        return padded(picture.deviceIndependentSize().toSize());
    }

    void setPlace(const QRect& place) { setGeometry(place.marginsAdded(m_frame.margins())); }

protected:
    void paintEvent(QPaintEvent* event) override {
        QPainter painter(this);
        const PopoverColors colors(palette());
        const QRect panel = rect().marginsRemoved(m_frame.margins());
        m_frame.paint(painter, panel, event->rect(), colors);
        painter.translate(panel.topLeft() + QPoint(inset, inset));
        if (!m_picture.isNull())
            return painter.drawPixmap(0, 0, m_picture);
        QAbstractTextDocumentLayout::PaintContext context;
        context.palette.setColor(QPalette::Text, colors.text);
        m_text.documentLayout()->draw(&painter, context);
    }

private:
    static QSize padded(QSize content) { return content + QSize(2 * inset, 2 * inset); }

    PanelFrame m_frame;
    QTextDocument m_text;
    QPixmap m_picture;
};

PopoverTip::PopoverTip(PopoverStack& stack, const PopoverContext& context)
    : m_stack(stack)
    , m_context(context) {
    m_delay.setSingleShot(true);
    m_delay.setInterval(delayMilliseconds);
    connect(&m_delay, &QTimer::timeout, this, &PopoverTip::show);
}

PopoverTip::~PopoverTip() = default;

void PopoverTip::restart() {
    if (!m_stack.isShown())
        return hide();
    if (m_window && m_window->isVisible() && m_stack.highlighted() == m_spot)
        return;
    hide();
    m_delay.start();
}

void PopoverTip::hide() {
    m_delay.stop();
    m_window.reset();
}

void PopoverTip::refresh() {
    if (m_stack.isShown() && !m_window && m_stack.highlighted() == m_spot && !m_delay.isActive())
        show();
}

void PopoverTip::show() {
    if (!m_stack.isShown())
        return;
    m_spot = m_stack.highlighted();
    // A submenu stands where the tip would.
    if (!m_stack.isSelectable(m_spot) || m_spot.level + 1 < m_stack.depth())
        return;
    const MenuItem item = m_stack.list(m_spot.level).rows().item(m_spot.row);
    const bool isPicture = !item.imagePNGData.isEmpty();
    const QIcon picture = isPicture ? m_context.previews.icon(item.imagePNGData) : QIcon();
    if (isPicture ? picture.isNull() : !saysMore(item))
        return; // A picture comes when it is decoded.
    PopoverPanel& panel = m_stack.panel(m_spot.level);
    m_window = std::make_unique<TipWindow>(&panel, panel.shape());
    const QSize size =
        isPicture ? m_window->setPicture(picture.pixmap(picture.availableSizes().value(0), 1.0))
                  : m_window->setText(item.toolTip);
    const PopoverList& list = panel.list();
    const QRect row = list.placeOf(m_spot.row).translated(list.mapToGlobal(QPoint()));
    const bool isMirrored = panel.layoutDirection() == Qt::RightToLeft;
    const QRect beside = panel.place().adjusted(-gap, 0, gap, 0);
    const QRect place =
        placedBeside(beside, row, size, isMirrored ? PanelSide::left : PanelSide::right,
                     panel.screen()->availableGeometry())
            .place;
    if (place.intersects(panel.place()))
        return hide();
    m_window->setPlace(place);
    m_window->show();
}

} // namespace quorvel
