#include "smart/masking/CommandLine.h"

#include "smart/masking/CharacterBits.h"

namespace quorvel {

namespace {

bool endsCommand(QChar unit) {
    return unit == u'\n' || unit == u'\r' || unit == u'|' || unit == u';' || unit == u'&' ||
           unit == u')' || unit == u'`';
}

qsizetype argumentEnd(QStringView text, qsizetype at, qsizetype limit) {
    QChar quote;
    for (; at < limit; ++at) {
        const QChar unit = text[at];
        const bool isQuote = unit == u'"' || unit == u'\'';
        const bool isSeparator = hasBit(unit, blankBit) || endsCommand(unit);
        if (isQuote && quote.isNull())
            quote = unit;
        else if (isQuote && unit == quote)
            quote = QChar();
        else if ((quote.isNull() && isSeparator) || hasBit(unit, lineEndBit))
            break;
    }
    return at;
}

} // namespace

QStringView CommandLine::argument(qsizetype index) const {
    if (index < 0 || index >= m_arguments.size())
        return {};
    return m_text.mid(m_arguments[index].start, m_arguments[index].end - m_arguments[index].start);
}

SecretRange CommandLine::unquoted(qsizetype index, qsizetype skipped) const {
    qsizetype start = m_arguments[index].start + skipped;
    qsizetype end = m_arguments[index].end;
    const auto isQuote = [&](qsizetype at) { return m_text[at] == u'"' || m_text[at] == u'\''; };
    if (end > start && isQuote(start))
        ++start;
    if (end > start && isQuote(end - 1))
        --end;
    return {start, end - start};
}

void CommandLine::readArguments(qsizetype at) {
    constexpr qsizetype longest = 3000;
    const qsizetype limit = qMin(m_text.size(), at + longest);
    for (;;) {
        while (at < limit && (bitsOf(m_text[at]) == blankBit ||
                              (m_text[at] == u'\\' && hasBit(unitAt(m_text, at + 1), lineEndBit)) ||
                              (hasBit(m_text[at], lineEndBit) && m_text[at - 1] == u'\\')))
            ++at;
        if (at >= limit || endsCommand(m_text[at]))
            break;
        const qsizetype end = argumentEnd(m_text, at, limit);
        if (end > at)
            m_arguments.append({at, end});
        // What neither is skipped above nor begins an argument must not stop the walk.
        at = qMax(end, at + 1);
    }
    m_end = at;
}

} // namespace quorvel
