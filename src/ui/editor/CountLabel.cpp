#include "ui/editor/CountLabel.h"

#include <QLocale>

#include <chrono>

namespace quorvel {

namespace {

using namespace std::chrono_literals;

/// Fetching a text this long takes a noticeable time by itself.
constexpr qsizetype longText = 500'000;
constexpr auto pauseAfterKey = 120ms;
constexpr auto pauseInLongText = 800ms;

/// A few milliseconds' worth.
constexpr qsizetype unitsPerTurn = 16'384;

} // namespace

CountLabel::CountLabel(const StringTable& strings, std::function<QString()> text)
    : m_format(strings.text(QStringLiteral("menu.pasteWithEdit.counts")))
    , m_text(std::move(text)) {
    m_pause.setSingleShot(true);
    connect(&m_pause, &QTimer::timeout, this, &CountLabel::begin);
    connect(&m_turn, &QTimer::timeout, this, &CountLabel::goOn);
}

void CountLabel::noteChange(qsizetype length) {
    m_turn.stop();
    m_pause.start(length > longText ? pauseInLongText : pauseAfterKey);
}

void CountLabel::begin() {
    m_counter.emplace(m_text());
    m_turn.start(0ms);
}

void CountLabel::goOn() {
    m_counter->advance(unitsPerTurn);
    if (!m_counter->isDone())
        return;
    m_turn.stop();
    show(m_counter->counts());
    m_counter.reset();
}

void CountLabel::show(const TextCounts& counts) {
    const QLocale locale;
    setText(m_format.arg(locale.toString(counts.characters), locale.toString(counts.words),
                         locale.toString(counts.lines)));
}

} // namespace quorvel
