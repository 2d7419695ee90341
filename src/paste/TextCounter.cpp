#include "paste/TextCounter.h"

#include "foundation/Text.h"

#include <QTextBoundaryFinder>

#include <algorithm>

namespace quorvel {

namespace {

/// A bit ends at white space, where neither a word nor a character goes on; but one without any
/// must end as well.
constexpr qsizetype longestWord = 4096;

bool isLetterAt(QStringView text, qsizetype position) {
    if (position >= text.size())
        return false;
    const QChar c = text.at(position);
    const bool isPair = c.isHighSurrogate() && position + 1 < text.size();
    return isPair ? QChar::isLetter(QChar::surrogateToUcs4(c, text.at(position + 1)))
                  : c.isLetter();
}

/// The finder tells of no word that begins with an ideograph, but has a boundary there.
qsizetype wordCount(QStringView text) {
    QTextBoundaryFinder finder(QTextBoundaryFinder::Word, text.data(), text.size());
    qsizetype count = 0;
    do
        count += finder.boundaryReasons().testFlag(QTextBoundaryFinder::StartOfItem) ||
                         isLetterAt(text, finder.position())
                     ? 1
                     : 0;
    while (finder.toNextBoundary() >= 0);
    return count;
}

} // namespace

TextCounter::TextCounter(QString text)
    : m_text(std::move(text)) {}

void TextCounter::advance(qsizetype units) {
    const qsizetype end = endOfBit(units);
    countBit(QStringView(m_text).sliced(m_position, end - m_position));
    m_position = end;
    if (isDone() && !m_text.isEmpty() && !m_text.endsWith(u'\n'))
        ++m_counts.lines;
}

qsizetype TextCounter::endOfBit(qsizetype units) const {
    const qsizetype size = m_text.size();
    const auto bounded = [&](qsizetype from, qsizetype length) {
        return length < size - from ? from + length : size;
    };
    qsizetype end = bounded(m_position, std::max<qsizetype>(units, 1));
    const qsizetype limit = bounded(end, longestWord);
    while (end < limit && !(m_text.at(end - 1) == u' ' || m_text.at(end - 1) == u'\n'))
        ++end;
    const bool splitsPair = end < size && m_text.at(end).isLowSurrogate();
    return splitsPair ? end + 1 : end;
}

void TextCounter::countBit(QStringView bit) {
    m_counts.characters += characterCount(bit);
    m_counts.words += wordCount(bit);
    m_counts.lines += bit.count(u'\n');
}

} // namespace quorvel
