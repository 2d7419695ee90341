#include "ui/recorder/MessageLine.h"

#include <QBoxLayout>
#include <QEvent>

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
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(gap);
    row->addWidget(&m_mark, 0, Qt::AlignTop);
    row->addWidget(&m_text, 1);
    showMark();
    hide();
}

void MessageLine::say(const QString& message, Tone tone) {
    m_text.setText(message);
    m_text.setForegroundRole(tone == Tone::quiet ? QPalette::PlaceholderText
                                                 : QPalette::WindowText);
    m_mark.setVisible(tone == Tone::warning);
    setVisible(!message.isEmpty());
    fitHeight();
}

void MessageLine::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    fitHeight();
}

/// A window does not ask its layout how high it has to be for its width.
void MessageLine::fitHeight() {
    const int beside = m_mark.isHidden() ? 0 : markSize + gap;
    const int height = m_text.heightForWidth(std::max(1, width() - beside));
    setMinimumHeight(m_text.text().isEmpty() ? 0 : std::max(markSize, height));
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
