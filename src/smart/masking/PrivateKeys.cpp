#include "smart/masking/PrivateKeys.h"

#include "smart/masking/CharacterBits.h"

namespace quorvel {

namespace {

constexpr QStringView dashes = u"-----";
constexpr qsizetype leastKeyRun = 16;

/// A line of a key: base64, or a header such as "Proc-Type: 4,ENCRYPTED".
bool isKeyLine(QStringView line) {
    line = line.trimmed();
    if (line.isEmpty())
        return true;
    const qsizetype run = endOfBits(line, 0, dataBit);
    return run == line.size() || (unitAt(line, run) == u':' && line.size() < 80) ||
           (unitAt(line, run) == u'\\' && unitAt(line, run + 1) == u'n');
}

qsizetype endOfLine(QStringView text, qsizetype start) {
    while (start < text.size() && !hasBit(text[start], lineEndBit))
        ++start;
    return start;
}

/// Where a block without its last line ends.
qsizetype endOfKeyLines(QStringView text, qsizetype start) {
    qsizetype end = start;
    for (qsizetype at = start; at < text.size();) {
        const qsizetype lineEnd = endOfLine(text, at);
        if (!isKeyLine(text.mid(at, lineEnd - at)))
            break;
        end = lineEnd;
        at = lineEnd + 1;
    }
    return end;
}

bool holdsKeyData(QStringView body) {
    qsizetype run = 0;
    for (const QChar unit : body) {
        const bool isData =
            unit.unicode() < 0x80 && hasBit(unit, dataBit) && unit != u'.' && unit != u'-';
        run = isData ? run + 1 : 0;
        if (run >= leastKeyRun)
            return true;
    }
    return false;
}

SecretRange trimmed(QStringView text, qsizetype start, qsizetype end) {
    while (start < end && hasBit(text[start], blankBit))
        ++start;
    if (text.mid(start, 2) == u"\\n" && start + 2 < end)
        start += 2;
    while (end > start && (hasBit(text[end - 1], blankBit) || text[end - 1] == u'"'))
        --end;
    return {start, end - start};
}

} // namespace

qsizetype ArmourReader::nextOf(NextMark& mark, qsizetype from) const {
    if (mark.at < from) {
        const qsizetype found = m_text.indexOf(mark.mark, from);
        mark.at = found < 0 ? m_text.size() : found;
    }
    return mark.at;
}

/// A block that was cut off ends with its last line that may belong to it.
qsizetype ArmourReader::endOfBody(qsizetype body) {
    const qsizetype end = nextOf(m_end, body);
    const qsizetype begin = nextOf(m_begin, body);
    return end < m_text.size() && end < begin ? end : endOfKeyLines(m_text.left(begin), body);
}

ArmourReading ArmourReader::read(qsizetype start) {
    constexpr qsizetype longestName = 60;
    const qsizetype name = start + m_begin.mark.size();
    if (!m_text.mid(start).startsWith(m_begin.mark))
        return {{}, start + dashes.size()};
    const qsizetype nameSize = m_text.mid(name, longestName).indexOf(dashes);
    if (nameSize < 0)
        return {{}, name};
    const QStringView kind = m_text.mid(name, nameSize);
    const bool isPrivate = kind.contains(u"PRIVATE") || kind.contains(u"SECRET");
    const qsizetype body = name + nameSize + dashes.size();
    const qsizetype end = endOfBody(body);
    if (!isPrivate)
        return {{}, end};
    if (!holdsKeyData(m_text.mid(body, end - body)))
        return {{}, body};
    return {trimmed(m_text, body, end), end};
}

std::optional<SecretRange> keyLinesAt(QStringView text, qsizetype start) {
    const qsizetype count = afterBlanks(text, unitAt(text, start) == u':' ? start + 1 : start);
    if (!hasBit(unitAt(text, count), digitBit))
        return {};
    qsizetype lines = 0;
    qsizetype at = count;
    for (; hasBit(unitAt(text, at), digitBit) && lines < 1000; ++at)
        lines = lines * 10 + text[at].digitValue();
    const qsizetype body = endOfLine(text, at);
    qsizetype end = body;
    while (lines-- > 0 && end < text.size()) {
        if (text.mid(end, 2) == u"\r\n")
            ++end;
        end = endOfLine(text, end + 1);
    }
    const SecretRange range = trimmed(text, body, qMin(end, text.size()));
    return holdsKeyData(text.mid(range.start, range.length)) ? std::optional(range) : std::nullopt;
}

} // namespace quorvel
