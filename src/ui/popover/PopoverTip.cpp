#include "ui/popover/PopoverTip.h"

#include "ui/MenuText.h"

#include <QLabel>
#include <QVBoxLayout>

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
class TipWindow final : public QLabel {
public:
    TipWindow(QWidget* parent, PanelFrame::Shape shape)
        : QLabel(parent, Qt::ToolTip | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint)
        , m_frame(shape) {
        setAttribute(Qt::WA_ShowWithoutActivating);
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setAttribute(Qt::WA_TranslucentBackground, shape == PanelFrame::Shape::blended);
        setContentsMargins(m_frame.margins() + QMargins(inset, inset, inset, inset));
        setTextFormat(Qt::RichText);
        setFont(PopoverMetrics(font()).detail);
    }

    QMargins frameMargins() const { return m_frame.margins(); }

    void showText(const QString& text) {
        setWordWrap(false);
        setText(toolTipMarkup(text));
        const int most = mostWidth + 2 * inset + m_frame.margins().left() * 2;
        if (sizeHint().width() > most)
            setWordWrap(true);
        setFixedWidth(std::min(most, sizeHint().width()));
        resize(width(), wordWrap() ? heightForWidth(width()) : sizeHint().height());
    }

    void showPicture(QPixmap picture) {
        picture.setDevicePixelRatio(devicePixelRatioF());
        setMinimumWidth(0);
        setMaximumWidth(QWIDGETSIZE_MAX);
        setPixmap(picture);
        resize(sizeHint());
    }

protected:
    void paintEvent(QPaintEvent* event) override {
        QPainter painter(this);
        m_frame.paint(painter, rect().marginsRemoved(m_frame.margins()), rect(),
                      PopoverColors(palette()));
        painter.end();
        QLabel::paintEvent(event);
    }

private:
    PanelFrame m_frame;
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
    const QIcon picture =
        item.imagePNGData.isEmpty() ? QIcon() : m_context.previews.icon(item.imagePNGData);
    if (picture.isNull() && !saysMore(item))
        return;
    PopoverPanel& panel = m_stack.panel(m_spot.level);
    m_window = std::make_unique<TipWindow>(&panel, panel.shape());
    if (picture.isNull())
        m_window->showText(item.toolTip);
    else
        m_window->showPicture(
            picture.pixmap(picture.availableSizes().value(0), panel.devicePixelRatioF()));
    const PopoverList& list = panel.list();
    const QRect row = list.placeOf(m_spot.row).translated(list.mapToGlobal(QPoint()));
    const QSize size = m_window->size().shrunkBy(m_window->frameMargins());
    const bool isMirrored = panel.layoutDirection() == Qt::RightToLeft;
    const QRect beside = panel.place().adjusted(-gap, 0, gap, 0);
    const QRect place =
        placedBeside(beside, row, size, isMirrored ? PanelSide::left : PanelSide::right,
                     panel.screen()->availableGeometry())
            .place;
    if (place.intersects(panel.place()))
        return hide();
    m_window->setGeometry(place.marginsAdded(m_window->frameMargins()));
    m_window->show();
}

} // namespace quorvel
