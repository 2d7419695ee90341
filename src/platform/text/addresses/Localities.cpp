#include "platform/text/addresses/Localities.h"

#include "platform/text/addresses/AddressWords.h"
#include "platform/text/addresses/Places.h"
#include "platform/text/addresses/Postcodes.h"

#include <QVarLengthArray>

namespace quorvel {

namespace words = addressWords;

namespace {

constexpr int townWeight = 10;
constexpr int regionWeight = 15;

} // namespace

AddressPart Localities::at(qsizetype index) const {
    if (!m_reader.has(index))
        return {};
    const AddressPart readings[] = {postcodeTown(index), regionAt(index), knownPlaceAt(index),
                                    districtAt(index), announcedPlaceAt(index)};
    for (const AddressPart& reading : readings)
        if (!reading.isEmpty())
            return reading;
    return {};
}

/// Behind the longest name of a place that begins here, of at most four words; `index` for none.
qsizetype Localities::placeEnd(qsizetype index, bool (*isPlace)(QStringView)) const {
    constexpr int mostWords = 4;
    constexpr qsizetype longest = 40;
    QVarLengthArray<QChar, 64> name;
    qsizetype end = index;
    qsizetype next = index;
    for (int count = 0; count < mostWords && m_reader.isWord(next); ++count) {
        if (count > 0 && !m_reader.continuesLine(next))
            break;
        const qsizetype last = m_reader.compoundEnd(next);
        for (qsizetype i = next; i < last && name.size() < longest; ++i) {
            const bool isJoint = !m_reader.isWord(i);
            if (isJoint || !name.isEmpty())
                if (isJoint || name.last() != u'-')
                    name.append(isJoint ? u'-' : u' ');
            const QStringView word = m_reader.word(i).left(longest);
            name.append(word.data(), word.size());
        }
        if (isPlace(QStringView(name.data(), name.size())))
            end = last;
        next = m_reader.afterDot(last);
    }
    return end;
}

/// Behind "am Main", "an der Oder", "sur Seine".
qsizetype Localities::withRiver(qsizetype town) const {
    const QStringView word = m_reader.word(town);
    const bool isBeside =
        m_reader.continuesLine(town) && (word == u"am" || word == u"an" || word == u"im" ||
                                         word == u"sur" || word == u"ob" || word == u"upon");
    const qsizetype name = town + (m_reader.word(town + 1) == u"der" ? 2 : 1);
    return isBeside && m_reader.continuesLine(name) && m_reader.isCapital(name) ? name + 1 : town;
}

/// Behind the town after a postcode.
qsizetype Localities::townEnd(qsizetype index) const {
    if (!m_reader.isCapital(index) || words::isQuantity(m_reader.word(index)) ||
        words::isContact(m_reader.word(index)))
        return index;
    const qsizetype known = placeEnd(index, places::isCity);
    if (known > index)
        return withRiver(known);
    constexpr int mostWords = 4;
    qsizetype end = index;
    qsizetype next = index;
    for (int count = 0; count < mostWords; ++count) {
        const bool isConnector = count > 0 && words::isConnector(m_reader.word(next));
        if (!m_reader.isCapital(next) && !isConnector)
            break;
        next = m_reader.compoundEnd(next);
        end = m_reader.isCapital(next - 1) ? next : end;
        if (m_reader.word(next - 1).size() <= 3)
            next = m_reader.afterDot(next);
        if (!m_reader.continuesLine(next) || words::isContact(m_reader.word(next)))
            break;
    }
    return end;
}

/// Behind "(RM)", "MI", "Cedex 08" or the number of a city's district.
qsizetype Localities::afterTown(qsizetype index) const {
    qsizetype end = index;
    if (m_reader.continuesLine(end) && m_reader.word(end) == u"cedex")
        ++end;
    if (m_reader.continuesLine(end) && m_reader.digits(end) > 0 && m_reader.digits(end) < 3 &&
        m_reader.endsPart(end + 1))
        ++end;
    const AddressPart letters = lettersAt(end);
    return letters.isEmpty() ? end : letters.end;
}

AddressPart Localities::postcodeTown(qsizetype index) const {
    qsizetype start = index;
    // "〒" and "CEP" only announce it.
    if (m_reader.isMark(index, u'〒') || m_reader.word(index) == u"cep" ||
        m_reader.word(index) == u"pin")
        start += m_reader.isMarkOf(index + 1, u":-") ? 2 : 1;
    AddressPart code = postcodeAt(m_reader, start);
    if (code.isEmpty())
        return {};
    code.first = index;
    const qsizetype town = code.end + (m_reader.isMark(code.end, u',') ? 1 : 0);
    const qsizetype end = m_reader.continuesLine(town) ? townEnd(town) : town;
    if (end > town) {
        const bool isKnown = placeEnd(town, places::isCity) > town;
        return {index, afterTown(end), code.weight + townWeight * (isKnown ? 2 : 1)};
    }
    constexpr int alone = 8;
    const bool counts = m_reader.continuesLine(code.end) && m_reader.isWord(code.end) &&
                        !m_reader.isCapital(code.end);
    if (code.weight < unmistakablePostcode &&
        (counts || words::isQuantity(m_reader.word(code.end))))
        return {};
    return {index, code.end,
            code.weight < unmistakablePostcode ? code.weight - alone : code.weight};
}

/// The region with the postcode behind it.
AddressPart Localities::withPostcode(AddressPart region, bool needsEnd) const {
    qsizetype start = m_reader.afterDot(region.end);
    start += m_reader.isMark(start, u',') || m_reader.isMark(start, u'-') ? 1 : 0;
    const AddressPart code = postcodeAt(m_reader, start);
    if (!code.isEmpty())
        return {region.first, code.end, region.weight + std::max(code.weight, 20)};
    return needsEnd && !m_reader.endsPart(region.end) ? AddressPart{} : region;
}

AddressPart Localities::regionAt(qsizetype index) const {
    const bool isInitials = m_reader.word(index) == u"d" && m_reader.isMark(index + 1, u'.') &&
                            m_reader.word(index + 2) == u"c";
    if (isInitials)
        return withPostcode({index, m_reader.afterDot(index + 3), regionWeight}, false);
    const QStringView word = m_reader.word(index);
    if (word.size() <= 3 && places::isRegionCode(word)) {
        const AddressPart region = withPostcode({index, index + 1, regionWeight}, true);
        const bool hasCode = region.end > index + 1;
        return m_reader.isUpper(index) || hasCode ? region : AddressPart{};
    }
    const qsizetype end = placeEnd(index, places::isRegion);
    return end > index && m_reader.isCapital(index) ? withPostcode({index, end, townWeight}, false)
                                                    : AddressPart{};
}

AddressPart Localities::knownPlaceAt(qsizetype index) const {
    const qsizetype city = placeEnd(index, places::isCity);
    if (city > index)
        return {index, afterTown(city), townWeight};
    const qsizetype country = placeEnd(index, places::isCountry);
    return country > index && m_reader.isCapital(index) ? AddressPart{index, country, townWeight}
                                                        : AddressPart{};
}

/// "Chiyoda-ku"
AddressPart Localities::districtAt(qsizetype index) const {
    const qsizetype end = m_reader.compoundEnd(index);
    const bool isDistrict = m_reader.isCapital(index) && end == index + 3 &&
                            !m_reader.isCapital(end - 1) &&
                            places::isDistrictEnd(m_reader.word(end - 1));
    return isDistrict ? AddressPart{index, end, regionWeight} : AddressPart{};
}

/// "г. Москва", "Col. Del Valle", "Московская обл."
AddressPart Localities::announcedPlaceAt(qsizetype index) const {
    constexpr int weight = 12;
    const auto isAnnouncer = [this](qsizetype at) {
        const bool hasDot = m_reader.isMark(at + 1, u'.');
        return m_reader.continuesLine(at + 1) && places::isPlaceWord(m_reader.word(at)) &&
               (hasDot || m_reader.word(at).size() > 2);
    };
    const qsizetype name = m_reader.afterDot(index + 1);
    if (isAnnouncer(index) && m_reader.isCapital(name) && m_reader.continuesLine(name)) {
        const qsizetype end = townEnd(name);
        return end > name ? AddressPart{index, end, weight} : AddressPart{};
    }
    const qsizetype end = m_reader.compoundEnd(index);
    const bool isNamed = m_reader.isCapital(index) && m_reader.continuesLine(end) &&
                         places::isPlaceWord(m_reader.word(end)) && m_reader.word(end).size() > 2;
    return isNamed ? AddressPart{index, m_reader.afterDot(end + 1), weight} : AddressPart{};
}

AddressPart Localities::lettersAt(qsizetype index) const {
    constexpr int weight = 5;
    const bool isBracketed = m_reader.isMark(index, u'(');
    const qsizetype letters = index + (isBracketed ? 1 : 0);
    const bool fits = m_reader.continuesLine(index) && m_reader.isUpper(letters) &&
                      m_reader.tokens().at(letters).length == 2;
    const qsizetype end = letters + 1;
    if (!fits || (isBracketed ? !m_reader.isMark(end, u')') : !m_reader.endsPart(end)))
        return {};
    return {index, end + (isBracketed ? 1 : 0), weight};
}

AddressPart Localities::unitAt(qsizetype index) const {
    constexpr int weight = 3;
    const bool isSign = m_reader.isMark(index, u'#');
    if (isSign || words::isUnit(m_reader.word(index))) {
        qsizetype at = m_reader.afterDot(index + 1);
        at += m_reader.isMarkOf(at, u"#№:-") && m_reader.continuesLine(at) ? 1 : 0;
        at = words::isNumberWord(m_reader.word(at)) ? m_reader.afterDot(at + 1) : at;
        if (!m_reader.continuesLine(at))
            return {};
        if (m_reader.isNumber(at))
            return {index, std::max(m_reader.houseNumberEnd(at), at + 1), weight};
        const bool isLetter = m_reader.word(at).size() == 1 && m_reader.isUpper(at);
        if (!isLetter)
            return {};
        return {index, at + (m_reader.isGlued(at + 1) && m_reader.isNumber(at + 1) ? 2 : 1),
                weight};
    }
    // "2nd Floor", "3. OG", "2º B", "4 этаж"
    if (!m_reader.isNumber(index) || m_reader.digits(index) > 2)
        return {};
    qsizetype at = m_reader.afterDot(index + 1);
    const QStringView next = m_reader.word(at);
    const bool isOrdinal = m_reader.isGlued(at) && next.size() <= 3;
    if (at > index + 1 && words::isSide(next) && m_reader.continuesLine(at))
        return {index, at + 1, weight};
    at += isOrdinal && !words::isUnitAfter(next) ? 1 : 0;
    if (words::isUnitAfter(m_reader.word(at)) && m_reader.continuesLine(at))
        return {index, m_reader.afterDot(at + 1), weight};
    const bool isDoor = at > index + 1 && (next == u"º" || next == u"ª" || next == u"o");
    const QStringView side = m_reader.continuesLine(at) ? m_reader.word(at) : QStringView();
    const bool hasSide = side.size() == 1 || words::isSide(side);
    return isDoor ? AddressPart{index, at + (hasSide ? 1 : 0), weight} : AddressPart{};
}

AddressPart Localities::nameAt(qsizetype index) const {
    constexpr int mostWords = 5;
    if (!m_reader.isCapital(index) || words::isContact(m_reader.word(index)))
        return {};
    qsizetype end = index;
    qsizetype next = index;
    for (int count = 0; count < mostWords; ++count) {
        if (count > 0 && (!m_reader.continuesLine(next) || !at(next).isEmpty()))
            break;
        const bool isShortNumber =
            count > 0 && m_reader.digits(next) > 0 && m_reader.digits(next) < 4;
        if (!m_reader.isCapital(next) && !isShortNumber && !words::isConnector(m_reader.word(next)))
            break;
        next = m_reader.isWord(next) ? m_reader.compoundEnd(next) : next + 1;
        end = next;
        if (m_reader.word(next - 1).size() <= 3)
            next = m_reader.afterDot(next);
    }
    return {index, end, 0};
}

} // namespace quorvel
