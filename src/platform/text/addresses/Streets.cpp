#include "platform/text/addresses/Streets.h"

#include "platform/text/addresses/AddressWords.h"

namespace quorvel {

namespace words = addressWords;

namespace {

constexpr int contextWeight = 5;
constexpr int doubtful = 8;
constexpr int unlikely = 10;
constexpr int veryUnlikely = 20;
constexpr qsizetype longestName = 9;

} // namespace

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
