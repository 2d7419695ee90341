#include "platform/text/addresses/Streets.h"

#include "platform/text/addresses/AddressWords.h"

namespace quorvel {

namespace words = addressWords;

/// For streets that end with their number: nothing, when that counts the next word.
AddressPart Streets::unlessCounting(AddressPart street, const HouseNumber& number) const {
    const qsizetype end = street.end;
    const bool counts = m_reader.continuesLine(end) && (words::isQuantity(m_reader.word(end)) ||
                                                        m_reader.isMarkOf(end, u"%€$£°=+"));
    const bool isDate = m_reader.isMark(end, u'.') && words::isQuantity(m_reader.word(end + 1));
    if (counts || isDate)
        return {};
    const int value = m_reader.tokens().at(number.first).value;
    const bool isYear = number.end == number.first + 1 && value >= 1900 && value < 2100;
    street.weight -= isYear ? unlikely : 0;
    return weighed(street);
}

qsizetype Streets::nameBefore(qsizetype number) const {
    qsizetype last = number - 1;
    if (!m_reader.continuesLine(number))
        return -1;
    const bool hasSign = m_reader.isMarkOf(last, u"#№");
    last -= hasSign ? 1 : 0;
    const qsizetype sign = last;
    while (m_reader.isMarkOf(last, u".°:") && sign - last < 2)
        --last;
    if (words::isNumberWord(m_reader.word(last)) && m_reader.continuesLine(last))
        --last;
    else
        last = sign;
    if (m_reader.isMark(last, u',') && m_reader.continuesLine(last + 1))
        --last;
    return m_reader.has(last) && m_reader.continuesLine(last + 1) ? last : -1;
}

/// The end of "V.le", "P.zza" or "C.so".
bool Streets::isItalianShort(qsizetype index) const {
    const QStringView end = m_reader.word(index);
    const QStringView start = m_reader.word(index - 2);
    const bool fits = (end == u"le" && (start == u"v" || start == u"p")) ||
                      ((end == u"za" || end == u"zza") && start == u"p") ||
                      (end == u"so" && start == u"c");
    return fits && m_reader.isMark(index - 1, u'.') && m_reader.isGlued(index);
}

AddressPart Streets::prefixNameNumber(const HouseNumber& number) const {
    const qsizetype last = number.nameLast;
    int names = 0;
    int lowerWords = 0;
    for (qsizetype i = last; i >= 0 && i > last - longestName; --i) {
        const int weight = names > 0 ? prefixAt(i) : 0;
        if (names > 0 && isItalianShort(i))
            return unlessCounting({i - 2, number.end, 25}, number);
        if (weight > 0) {
            const bool isSmall =
                !m_reader.isCapital(i) && !isLedIn(i) && m_reader.word(i).at(0) < u'\u0400';
            const int doubts = (isSmall ? 5 : 0) + lowerWords * 10 +
                               (words::isDay(m_reader.word(i + 1)) ? 10 : 0) +
                               (words::isNumbered(m_reader.word(last)) ? 10 : 0);
            return unlessCounting({i, number.end, weight - doubts}, number);
        }
        const bool joins = m_reader.isHyphen(i) || m_reader.isMarkOf(i, u"./'") ||
                           (m_reader.digits(i) > 0 && m_reader.digits(i) < 3);
        const bool isName = m_reader.isWord(i) && !m_reader.isHyphen(i - 1);
        const bool isSmallName =
            isName && !m_reader.isCapital(i) && !words::isConnector(m_reader.word(i));
        lowerWords += isSmallName ? 1 : 0;
        names += isName && !words::isConnector(m_reader.word(i)) ? 1 : 0;
        if ((!joins && !m_reader.isWord(i)) || lowerWords > 1 || m_reader.startsLine(i))
            break;
    }
    return {};
}

/// A word that can stand in the name of a street that ends with a word of its own.
bool Streets::isName(qsizetype index) const {
    const QStringView word = m_reader.word(index);
    const bool isArticle = word == u"die" || word == u"der" || word == u"das" || word == u"den";
    return m_reader.isCapital(index) && m_reader.continuesLine(index + 1) && !isArticle &&
           !words::isDay(word);
}

/// The first token of the name before the word that ends the street; `index` for none.
qsizetype Streets::nameStartBefore(qsizetype index) const {
    constexpr int mostWords = 3;
    qsizetype first = index;
    for (int names = 0; names < mostWords && isName(first - 1); ++names) {
        if (names > 0 && words::leadsIn(m_reader.word(first - 1)))
            break;
        first = m_reader.compoundStart(first - 1);
    }
    // "1-й Тверской пер."
    const bool isCounted =
        first < index && m_reader.isHyphen(first - 2) && m_reader.isNumber(first - 3);
    return first - (isCounted ? 3 : 0);
}

AddressPart Streets::nameSuffixNumber(const HouseNumber& number) const {
    const qsizetype last = number.nameLast - (m_reader.isMark(number.nameLast, u'.') ? 1 : 0);
    if (!m_reader.isWord(last))
        return {};
    const QStringView word = m_reader.word(last);
    qsizetype first = m_reader.compoundStart(last);
    const bool isCompound = first < last;
    const bool isShortened =
        isCompound && word.size() <= 2 && words::prefixWeight(m_reader.word(first)) > 0;
    const int trailing = isShortened ? 30 : words::trailingWeight(word);
    const int glued = isShortened || (trailing > 0 && !isCompound) ? 0 : words::gluedWeight(word);
    if (trailing == 0 && glued == 0)
        return {};
    const bool needsName = trailing > 0 && (!isCompound || isShortened);
    const qsizetype nameStart = nameStartBefore(first);
    if (needsName && nameStart == first)
        return {};
    if (needsName)
        first = nameStart;
    else if (isName(first - 1) && words::isStreetAdjective(m_reader.word(first - 1)))
        --first;
    const bool isSmall = !needsName && !m_reader.isCapital(first);
    const bool isAnnounced = number.nameLast < number.first - 2;
    const int weight = std::max(trailing, glued) + (isAnnounced ? contextWeight : 0);
    return unlessCounting({first, number.end, weight - (isSmall ? unlikely : 0)}, number);
}

AddressPart Streets::numberedStreet(const HouseNumber& number) const {
    const qsizetype prefix = number.first - (m_reader.isMark(number.first - 1, u'.') ? 2 : 1);
    if (prefixAt(prefix) == 0 || !m_reader.continuesLine(number.first))
        return {};
    qsizetype at = number.end;
    if (m_reader.word(at) == u"sur" || m_reader.word(at) == u"norte")
        ++at;
    const bool isSign = m_reader.isMarkOf(at, u"#№");
    if (!isSign && !words::isNumberWord(m_reader.word(at)))
        return {};
    at = m_reader.afterDot(at + 1);
    const qsizetype end = m_reader.houseNumberEnd(at);
    return end > at ? weighed({prefix, end, 30}) : AddressPart{};
}

AddressPart Streets::bareNameNumber(const HouseNumber& number) const {
    const qsizetype last = number.nameLast;
    if (!m_reader.isCapital(last) || words::isNumbered(m_reader.word(last)) ||
        words::isDay(m_reader.word(last)) || words::isUnit(m_reader.word(last)))
        return {};
    qsizetype first = last;
    bool hasPreposition = false;
    for (int count = 0; count < 5 && !hasPreposition; ++count) {
        first = m_reader.compoundStart(first);
        const QStringView before =
            m_reader.continuesLine(first) ? m_reader.word(first - 1) : QStringView();
        const bool isPreposition =
            words::isPlacePreposition(before) && m_reader.isCapital(first - 1);
        const bool belongs = m_reader.isCapital(first - 1) || words::isConnector(before);
        if (before.isEmpty() || (!belongs && !isPreposition) ||
            (words::leadsIn(before) && !isPreposition))
            break;
        hasPreposition = isPreposition;
        --first;
    }
    const bool isLed = m_reader.beginsPart(first) || isLedIn(first);
    if (!isLed && !hasPreposition)
        return {};
    AddressPart street = unlessCounting({first, number.end, hasPreposition ? 5 : 0}, number);
    street.weight -= isLed && !hasPreposition ? 2 * contextWeight : 0;
    return street;
}

} // namespace quorvel
