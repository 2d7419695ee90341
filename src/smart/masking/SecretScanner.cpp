#include "smart/masking/SecretScanner.h"

#include "smart/masking/CallSecrets.h"
#include "smart/masking/CardNumbers.h"
#include "smart/masking/CharacterBits.h"
#include "smart/masking/CodeLists.h"
#include "smart/masking/CommandSecrets.h"
#include "smart/masking/Headers.h"
#include "smart/masking/JsonWebTokens.h"
#include "smart/masking/LabelledValues.h"
#include "smart/masking/RandomStrings.h"
#include "smart/masking/SeedPhrases.h"
#include "smart/masking/TableColumns.h"
#include "smart/masking/TokenForms.h"
#include "smart/masking/UrlCredentials.h"
#include "smart/masking/WifiStrings.h"

namespace quorvel {

namespace {

constexpr qsizetype leastCardLength = 2;
constexpr qsizetype leastRunWord = 8;
constexpr int leastLoneGroups = 6;
constexpr int leastLabelledGroups = 4;
constexpr char16_t firstPlainLabel = 0x0530;

/// 123456789:AAE... of a chat bot; `start` is at the digits.
std::optional<SecretRange> botTokenAt(QStringView text, qsizetype start, qsizetype end) {
    if (end - start < 8 || end - start > 10 || unitAt(text, end) != u':')
        return {};
    qsizetype stop = end + 1;
    while (stop < text.size() && stop < end + 40 &&
           (isAsciiAlphanumeric(text[stop]) || text[stop] == u'-' || text[stop] == u'_'))
        ++stop;
    if (stop - end - 1 < 34 || stop - end - 1 > 36)
        return {};
    return hiddenPart(start, stop, end + 1 - start);
}

} // namespace

QList<SecretRange> SecretScanner::scan() {
    const qsizetype size = m_text.size();
    if (const auto password = lonePassword(m_text))
        return {*password};
    if (const auto words = loneSeedWords(m_text))
        return {*words};
    while (m_next < size) {
        const qsizetype at = m_next;
        const quint8 bits = bitsOf(m_text[at]);
        if (bits & wordBit) {
            const qsizetype end = endOfBits(m_text, at, wordBit);
            m_next = end;
            readWord(at, end);
            continue;
        }
        m_next = at + 1;
        if (!(bits & dataBit))
            m_runStart = m_next;
        if (m_text[at] == u':' || m_text[at] == u'-')
            readMark(at);
    }
    return m_found;
}

void SecretScanner::hide(SecretRange range) {
    if (range.length > 0)
        m_found.append(range);
}

void SecretScanner::readMark(qsizetype at) {
    if (m_text[at] == u':' && unitAt(m_text, at + 1) == u'/' && unitAt(m_text, at + 2) == u'/') {
        if (at >= m_urlEnd)
            m_urlEnd = endOfUrl(m_text, at);
        if (const auto password = urlPasswordAt(m_text, at + 3)) {
            hide(*password);
            m_next = qMax(m_next, password->end());
        }
        return;
    }
    if (m_text[at] != u'-' || m_text.mid(at, 5) != u"-----")
        return;
    const ArmourReading reading = m_armour.read(at);
    if (reading.hidden)
        hide(*reading.hidden);
    m_next = reading.end;
    m_runStart = m_next;
}

void SecretScanner::readWord(qsizetype start, qsizetype end) {
    const QChar first = m_text[start];
    if (hasBit(first, digitBit) && end - start >= leastCardLength)
        readDigits(start, end);
    const bool mayBeginWebToken = first == u'e' && unitAt(m_text, start + 1) == u'y';
    if (mayBeginWebToken || mayBeginServiceToken(m_text, start))
        readToken(start);
    if (m_next > end)
        return;
    if (end - start >= leastRunWord && start >= m_runChecked)
        readRun(start);
    if (m_next > end)
        return;
    readForms(start, end);
    if (mayEndLabel(m_text, start, end))
        readLabel(end);
    if (m_text[end - 1].unicode() >= firstPlainLabel || first.unicode() >= firstPlainLabel)
        readPlainLabels(start, end);
    if (end - start <= 14 && start >= m_commandEnd && hasBit(first, lowerBit | digitBit))
        readCommand(start, end);
}

void SecretScanner::readForms(qsizetype start, qsizetype end) {
    const QChar first = m_text[start];
    const QChar after = unitAt(m_text, end);
    if (after == u':' && m_text.mid(start, end - start) == u"WIFI") {
        if (const auto password = wifiPasswordAt(m_text, end))
            hide(*password);
    } else if (after == u':' && first == u'b' && m_text.mid(start, 3) == u"bot" &&
               hasBit(unitAt(m_text, start + 3), digitBit)) {
        if (const auto token = botTokenAt(m_text, start + 3, end))
            hide(*token);
    } else if (after == u'(' || after == u'=' || after == u':' || after == u' ') {
        readCall(start, end);
    }
}

void SecretScanner::readCall(qsizetype start, qsizetype end) {
    constexpr qsizetype group = 4;
    if (end - start == group && start >= m_groupsEnd && unitAt(m_text, end) == u' ') {
        const GroupReading key = groupedKeyAt(m_text, start, leastLoneGroups);
        m_groupsEnd = key.end;
        if (key.hidden)
            return hide(*key.hidden);
    }
    if (const auto password = callSecretAt(m_text, start, end))
        hide(*password);
}

void SecretScanner::readDigits(qsizetype start, qsizetype end) {
    if (const auto token = botTokenAt(m_text, start, end)) {
        hide(*token);
        m_next = token->end();
        return;
    }
    // No card begins with fewer digits; of a counter before one nothing is read.
    constexpr qsizetype leastGroup = 4;
    if (start < m_urlEnd || end - start < leastGroup)
        return;
    const CardReading card = cardNumberAt(m_text, start);
    if (card.hidden)
        hide(*card.hidden);
    m_next = qMax(m_next, card.end);
}

void SecretScanner::readToken(qsizetype start) {
    auto token = serviceTokenAt(m_text, start);
    if (!token && m_text[start] == u'e')
        token = jsonWebTokenAt(m_text, start);
    if (!token)
        return;
    hide(*token);
    m_next = qMax(m_next, token->end());
    m_runChecked = m_next;
}

void SecretScanner::readRun(qsizetype start) {
    qsizetype end = start;
    while (end < m_text.size() && m_text[end].unicode() < 0x80 && hasBit(m_text[end], dataBit))
        ++end;
    m_runChecked = end;
    if (start < m_urlEnd)
        return;
    if (const auto random = randomStringIn(m_text, m_runStart, end)) {
        hide(*random);
        m_next = qMax(m_next, random->end());
    }
}

void SecretScanner::readLabel(qsizetype end) {
    const auto label = labelEndingAt(m_text, end);
    if (!label)
        return;
    if (label->kind == LabelKind::authorization) {
        if (const auto credentials = authorizationAt(m_text, end))
            hide(*credentials);
        return;
    }
    if (label->kind == LabelKind::cookie)
        return m_found.append(cookiesAt(m_text, end));
    if (label->kind == LabelKind::keyLines) {
        if (const auto lines = keyLinesAt(m_text, end))
            hide(*lines);
        return;
    }
    if (!readListOrColumn(*label))
        readValue(*label);
}

/// Labels of whole lists: recovery codes, words of a wallet, columns of a table.
bool SecretScanner::readListOrColumn(const Label& label) {
    if (label.start >= m_tableEnd && mayHeadColumn(m_text, label)) {
        const TableReading column = columnBelow(m_text, label);
        m_tableEnd = qMax(m_tableEnd, column.end);
        m_found.append(column.hidden);
        if (!column.hidden.isEmpty())
            return true;
    }
    const bool isList = label.kind == LabelKind::codes || label.kind == LabelKind::phrase ||
                        label.kind == LabelKind::seed;
    const bool isKey = label.kind == LabelKind::secret || label.kind == LabelKind::networkKey;
    if (!isList && !isKey && label.kind != LabelKind::code)
        return false;
    const auto gap = gapAfter(m_text, label);
    std::optional<SecretRange> range;
    const bool isFarSeed = gap && gap->isFar && label.kind == LabelKind::seed;
    if (gap && isList && gap->separator != Separator::blank && !isFarSeed)
        range = label.kind == LabelKind::codes ? codeListAt(m_text, gap->end)
                                               : seedWordsAt(m_text, gap->end);
    else if (gap && isKey)
        range = groupedKeyAt(m_text, afterBlanks(m_text, gap->end), leastLabelledGroups).hidden;
    else if (label.kind == LabelKind::code)
        range = codeBefore(m_text, label);
    if (range)
        hide(*range);
    return range.has_value() || label.kind == LabelKind::seed;
}

void SecretScanner::readPlainLabels(qsizetype start, qsizetype end) {
    for (qsizetype at = start; at < end && m_next <= end; ++at)
        if (m_text[at].unicode() >= firstPlainLabel)
            if (const auto label = labelStartingAt(m_text, at))
                if (!readListOrColumn(*label))
                    readValue(*label);
}

void SecretScanner::readValue(const Label& label) {
    const auto value = valueOf(m_text, label);
    if (!value || !isSecretValue(m_text, label, *value))
        return;
    // A known token inside keeps its recognisable beginning.
    if (mayBeginServiceToken(m_text, value->start))
        if (const auto token = serviceTokenAt(m_text, value->start))
            return;
    hide({value->start, value->end - value->start});
    m_next = qMax(m_next, value->end);
    m_runChecked = m_next;
}

void SecretScanner::readCommand(qsizetype start, qsizetype end) {
    if (unitAt(m_text, end) == u'-')
        end = endOfBits(m_text, end + 1, lowerBit);
    if (bitsOf(unitAt(m_text, end)) != blankBit)
        return;
    if (!isSecretCommand(m_text.mid(start, end - start)))
        return;
    const CommandReading reading = commandSecretsAt(m_text, start, end);
    m_found.append(reading.hidden);
    m_commandEnd = reading.end;
}

} // namespace quorvel
