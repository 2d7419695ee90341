#include "ui/editor/TextLoader.h"

#include <QDeadlineTimer>
#include <QTextCursor>

#include <algorithm>
#include <chrono>

namespace quorvel {

namespace {

using namespace std::chrono_literals;

/// More than a window shows.
constexpr qsizetype firstUnits = 32'768;

/// Few enough that even a bit of nothing but line breaks takes a few milliseconds.
constexpr qsizetype unitsPerBit = 2048;

constexpr auto turn = 12ms;

} // namespace

TextLoader::TextLoader(QPlainTextEdit& field, QString text)
    : m_field(field)
    , m_text(std::move(text)) {
    m_field.setPlainText(takeBit(firstUnits));
    if (m_position == m_text.size())
        return;
    m_field.setReadOnly(true);
    m_field.setUndoRedoEnabled(false);
    connect(&m_turn, &QTimer::timeout, this, &TextLoader::goOn);
    m_turn.start(0ms);
}

void TextLoader::goOn() {
    const QDeadlineTimer end(turn);
    QTextCursor cursor(m_field.document());
    cursor.movePosition(QTextCursor::End);
    cursor.beginEditBlock(); // laid out once, not for each bit
    while (m_position < m_text.size() && !end.hasExpired())
        cursor.insertText(takeBit(unitsPerBit));
    cursor.endEditBlock();
    m_field.document()->setModified(false);
    if (m_position == m_text.size())
        finish();
}

/// The next bit, which ends inside neither a pair of surrogates nor a line break of two units.
QString TextLoader::takeBit(qsizetype units) {
    qsizetype end = std::min(m_position + units, m_text.size());
    const auto splits = [&](QChar next) { return next.isLowSurrogate() || next == u'\n'; };
    if (end < m_text.size() && splits(m_text.at(end)))
        ++end;
    const qsizetype start = std::exchange(m_position, end);
    return m_text.sliced(start, end - start);
}

void TextLoader::finish() {
    m_turn.stop();
    m_text.clear();
    m_position = 0;
    m_field.setUndoRedoEnabled(true);
    m_field.setReadOnly(false);
}

} // namespace quorvel
