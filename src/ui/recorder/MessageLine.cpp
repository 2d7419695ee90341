#include "ui/recorder/MessageLine.h"

#include <QEvent>
#include <QStyle>

#include <algorithm>

namespace quorvel {

namespace {

constexpr int gap = 4;
constexpr int markSize = 16;

} // namespace

MessageLine::MessageLine(const QIcon& warning)
    : m_warning(warning) {
    m_text.setWordWrap(true);
    m_text.setTextFormat(Qt::PlainText);
    m_text.setAlignment(Qt::AlignTop | Qt::AlignLeading);
    m_mark.setParent(this);
    m_text.setParent(this);
    showMark();
    hide();
}

void MessageLine::say(const QString& message, Tone tone) {
    m_text.setText(message);
    m_text.setForegroundRole(tone == Tone::quiet ? QPalette::PlaceholderText
                                                 : QPalette::WindowText);
    m_mark.setVisible(tone == Tone::warning);
    setVisible(!message.isEmpty());
    layOut();
}

void MessageLine::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    layOut();
}

/// By hand: a window does not ask its layout how high it has to be for its width.
void MessageLine::layOut() {
    const int beside = m_mark.isHidden() ? 0 : markSize + gap;
    const int textWidth = std::max(1, width() - beside);
    const int height = std::max(markSize, m_text.heightForWidth(textWidth));
    m_mark.setGeometry(QStyle::visualRect(layoutDirection(), rect(), {0, 0, markSize, markSize}));
    m_text.setGeometry(
        QStyle::visualRect(layoutDirection(), rect(), {beside, 0, textWidth, height}));
    setMinimumHeight(m_text.text().isEmpty() ? 0 : height);
}

/// A picture in a label does not follow the palette by itself.
void MessageLine::showMark() {
    m_mark.setPixmap(m_warning.pixmap(QSize(markSize, markSize), devicePixelRatioF()));
}

void MessageLine::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange)
        showMark();
    QWidget::changeEvent(event);
}

} // namespace quorvel
