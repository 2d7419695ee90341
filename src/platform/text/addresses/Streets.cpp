#include "platform/text/addresses/Streets.h"

#include "platform/text/addresses/AddressWords.h"

namespace quorvel {

namespace words = addressWords;

AddressPart Streets::at(qsizetype index) const {
    AddressPart best;
    const qsizetype end = m_reader.houseNumberEnd(index);
    // "B-12"
    const bool isLettered = m_reader.isHyphen(index - 1) && m_reader.word(index - 2).size() == 1 &&
                            m_reader.beginsPart(index - 2);
    const qsizetype first = index - (isLettered ? 2 : 0);
    if (end == index || followsBadly(first))
        return best;
    const auto keepBest = [&best](const AddressPart& reading) {
        if (!reading.isEmpty() && (best.isEmpty() || reading.weight > best.weight))
            best = reading;
    };
    const HouseNumber number{first, end, nameBefore(first)};
    if (m_reader.continuesLine(end)) {
        keepBest(numberNameSuffix(number));
        keepBest(numberPrefixName(number));
        keepBest(numberBareName(number));
    }
    if (number.nameLast >= 0) {
        keepBest(prefixNameNumber(number));
        keepBest(nameSuffixNumber(number));
        keepBest(bareNameNumber(number));
    }
    keepBest(numberedStreet(number));
    return best;
}

AddressPart Streets::atSpelled(qsizetype index) const {
    const bool isNumber = m_reader.isCapital(index) && words::isSpelledNumber(m_reader.word(index));
    return isNumber && m_reader.beginsPart(index) ? numberNameSuffix({index, index + 1, -1})
                                                  : AddressPart{};
}

/// "$5", "v12", "1.5", "#12": the number belongs to something else.
bool Streets::followsBadly(qsizetype number) const {
    if (m_reader.isMarkOf(number - 1, u"$€£¥@=+*\\_%<"))
        return true;
    return number > 0 && m_reader.isGlued(number) &&
           !m_reader.isMarkOf(number - 1, u",;:(#№.°[\"'>、，");
}

/// "at", "in der", "en la" before it.
bool Streets::isLedIn(qsizetype index) const {
    const QStringView before = m_reader.word(index - 1);
    const bool isArticle = words::isConnector(before) && before.size() <= 3;
    return words::leadsIn(before) || words::isUnit(before) ||
           (isArticle && words::leadsIn(m_reader.word(index - 2)));
}

/// Adds what stands around it: a street likes to begin and to end a part.
AddressPart Streets::weighed(AddressPart street) const {
    if (m_reader.beginsPart(street.first) || isLedIn(street.first))
        street.weight += contextWeight;
    if (m_reader.endsPart(street.end))
        street.weight += contextWeight;
    return street;
}

/// Behind "5th" or "42nd"; `index` where there is none.
qsizetype Streets::ordinalEnd(qsizetype index) const {
    constexpr int mostDigits = 3;
    if (m_reader.digits(index) == 0 || m_reader.digits(index) > mostDigits)
        return index;
    const QStringView end = m_reader.isGlued(index + 1) ? m_reader.word(index + 1) : QStringView();
    return end == u"th" || end == u"st" || end == u"nd" || end == u"rd" ? index + 2 : index;
}

/// A small word that cannot begin the name of a street: "30 on Main Street".
bool Streets::isLead(qsizetype index) const {
    const QStringView word = m_reader.word(index);
    return !m_reader.isCapital(index) && (words::leadsIn(word) || words::isConnector(word));
}

/// Reads the name up to the last word that ends a street.
AddressPart Streets::suffixedName(qsizetype nameStart) const {
    AddressPart street;
    int lowerWords = 0;
    int names = 0;
    for (qsizetype i = nameStart; i < nameStart + longestName && m_reader.continuesLine(i); ++i) {
        const qsizetype ordinal = ordinalEnd(i);
        if (ordinal > i) {
            ++names;
            i = ordinal - 1;
            continue;
        }
        const bool isDot = m_reader.isMark(i, u'.') && m_reader.isGlued(i);
        if (i > nameStart && (isDot || m_reader.isHyphen(i) || m_reader.isMark(i, u'&')))
            continue;
        if (!m_reader.isWord(i))
            break;
        const QStringView word = m_reader.word(i);
        const bool isCapital = m_reader.isCapital(i);
        const bool isHighway = words::isHighway(word) && m_reader.digits(i + 1) > 0 &&
                               m_reader.digits(i + 1) < 5 && m_reader.continuesLine(i + 1);
        const int weight = names > 0 || isHighway ? words::suffixWeight(word) : 0;
        const bool isMixed = lowerWords > 0 && lowerWords < names;
        if (weight > 0 && weight >= street.weight && !isMixed) {
            const bool isLower = !isCapital || lowerWords > 0;
            street = {nameStart, i + (isHighway ? 2 : 1), weight - (isLower ? doubtful : 0)};
        }
        const bool isConnector = words::isConnector(word);
        if (!isCapital && !isConnector && weight == 0 && ++lowerWords > 2)
            break;
        names += isCapital || !isConnector ? 1 : 0;
    }
    return street;
}

/// What speaks against a street after this number: counted things, years, a name that goes on.
int Streets::doubtsOf(const HouseNumber& number, qsizetype nameStart, qsizetype end) const {
    const int value = m_reader.tokens().at(number.first).value;
    const QStringView before =
        m_reader.continuesLine(number.first) ? m_reader.word(number.first - 1) : QStringView();
    const bool isYear = value >= 1800 && value < 2100 && words::leadsYear(before);
    const bool goesOn = m_reader.isCapital(end) && m_reader.continuesLine(end) &&
                        !words::isUnit(m_reader.word(end));
    return (words::isCounted(m_reader.word(nameStart)) ? veryUnlikely : 0) +
           (isYear ? veryUnlikely : 0) + (goesOn ? unlikely : 0) +
           (m_reader.isMark(number.first - 1, u'#') ? unlikely : 0) +
           (m_reader.isWord(number.first) ? unlikely : 0) +
           (words::isNumbered(before) && before != u"number" ? veryUnlikely : 0);
}

AddressPart Streets::numberNameSuffix(const HouseNumber& number) const {
    const bool hasComma = m_reader.isMark(number.end, u',');
    const qsizetype nameStart = number.end + (hasComma ? 1 : 0);
    AddressPart street = isLead(nameStart) ? AddressPart{} : suffixedName(nameStart);
    if (street.isEmpty())
        return {};
    while (m_reader.continuesLine(street.end) && words::isDirection(m_reader.word(street.end)) &&
           (m_reader.isUpper(street.end) || m_reader.word(street.end).size() > 3))
        ++street.end;
    street.first = number.first;
    street.weight -= doubtsOf(number, nameStart, street.end) + (hasComma ? doubtful : 0);
    return weighed(street);
}

/// The weight of the prefix that this word is; 0 for none.
int Streets::prefixAt(qsizetype index) const {
    const QStringView word = m_reader.word(index);
    const int weight = words::prefixWeight(word);
    if (weight == 0 && words::takesGenitive(word)) {
        const QStringView next = m_reader.word(index + 1);
        return m_reader.isCapital(index) && (next == u"des" || next == u"der") ? 30 : 0;
    }
    if (words::needsDot(word) &&
        !(m_reader.isMarkOf(index + 1, u"./") && m_reader.isGlued(index + 1)))
        return 0;
    return weight;
}

AddressPart Streets::numberPrefixName(const HouseNumber& number) const {
    const qsizetype prefix = number.end + (m_reader.isMark(number.end, u',') ? 1 : 0);
    if (!m_reader.continuesLine(prefix) || !words::takesNumberBefore(m_reader.word(prefix)))
        return {};
    const qsizetype nameStart = m_reader.afterDot(prefix + 1);
    qsizetype end = nameStart;
    bool isLower = false;
    for (qsizetype i = nameStart; i < nameStart + longestName && m_reader.continuesLine(i); ++i) {
        const bool joins =
            m_reader.isHyphen(i) ||
            (m_reader.isMark(i, u'.') && m_reader.isGlued(i) && m_reader.word(i - 1).size() < 4);
        if (joins || (m_reader.digits(i) > 0 && m_reader.digits(i) < 3 && end == nameStart))
            continue;
        const bool isConnector = words::isConnector(m_reader.word(i)) && !m_reader.isUpper(i);
        if (isConnector)
            continue;
        if (!m_reader.isCapital(i) && (!m_reader.isWord(i) || end > nameStart))
            break;
        isLower = isLower || !m_reader.isCapital(i);
        end = i + 1;
    }
    if (end == nameStart)
        return {};
    constexpr int usual = 25;
    const bool isSure = prefixAt(prefix) > usual;
    const bool hasConnector = words::isConnector(m_reader.word(nameStart));
    const int weight = isSure ? 30 : hasConnector ? usual : 20;
    return weighed({number.first, end, weight - (isLower && !(isSure && hasConnector) ? 10 : 0)});
}

AddressPart Streets::numberBareName(const HouseNumber& number) const {
    const qsizetype behind = number.end;
    if (!m_reader.beginsPart(number.first) || words::isCounted(m_reader.word(behind)) ||
        words::isQuantity(m_reader.word(behind)))
        return {};
    qsizetype end = behind;
    for (int count = 0; count < 4 && m_reader.continuesLine(end); ++count) {
        if (!m_reader.isCapital(end) && !words::isConnector(m_reader.word(end)))
            break;
        end = m_reader.compoundEnd(end);
    }
    if (end == behind || !m_reader.endsPart(end) || !m_reader.isCapital(end - 1))
        return {};
    // "1-2-3" is rather a Japanese block than anything else.
    const bool isBlock = behind - number.first == 5 && m_reader.isHyphen(number.first + 3);
    return {number.first, end, isBlock ? contextWeight : -contextWeight};
}

} // namespace quorvel
