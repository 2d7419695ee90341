#include "platform/text/addresses/AddressExtension.h"

#include "platform/text/addresses/AddressWords.h"
#include "platform/text/addresses/Postcodes.h"

namespace quorvel {

namespace words = addressWords;

namespace {

constexpr int mostPieces = 10;
constexpr int mostNames = 3;

} // namespace

/// An empty line, or more blanks than an address has.
bool AddressExtension::isWideGap(qsizetype index) const {
    constexpr qsizetype longest = 60;
    const Tokens& tokens = m_reader.tokens();
    if (!m_reader.has(index) || !m_reader.has(index - 1))
        return true;
    const qsizetype start = tokens.at(index - 1).end();
    const qsizetype length = tokens.at(index).start - start;
    return length > longest || tokens.text().mid(start, length).count(u'\n') > 1;
}

/// What separates the token before from the next piece, and where that begins.
AddressExtension::Gap AddressExtension::gapAt(qsizetype index) const {
    constexpr QStringView marks = u",;.-–—|•·/、，،(";
    qsizetype at = index;
    while (at - index < 2 && m_reader.continuesLine(at) && m_reader.isMarkOf(at, marks))
        ++at;
    if (isWideGap(at))
        return {at, Separator::none};
    return {at, m_reader.startsLine(at) ? Separator::line
                : at > index            ? Separator::mark
                                        : Separator::blank};
}

AddressPart AddressExtension::forward(AddressPart address) const {
    qsizetype at = address.end;
    qsizetype town = at;
    int names = 0;
    bool hasTown = false;
    for (int count = 0; count < mostPieces; ++count) {
        const Gap gap = gapAt(at);
        if (gap.separator == Separator::none)
            break;
        AddressPart piece = m_localities.at(gap.end);
        if (piece.isEmpty())
            piece = m_localities.unitAt(gap.end);
        if (piece.isEmpty() && hasTown)
            piece = m_localities.lettersAt(gap.end);
        if (m_reader.isMark(gap.end - 1, u'(') && !piece.isEmpty()) {
            if (!m_reader.isMark(piece.end, u')') || m_reader.isNumber(gap.end))
                break;
            ++piece.end;
        }
        if (!piece.isEmpty()) {
            address.end = at = piece.end;
            address.weight += piece.weight;
            town = at;
            names = 0;
            hasTown = true;
            continue;
        }
        const AddressPart name = m_localities.nameAt(gap.end);
        if (name.isEmpty() || m_reader.isMark(gap.end - 1, u'(') || ++names > mostNames)
            break;
        at = name.end;
        // A town of which nothing more is known is taken when it is a part of its own.
        const bool isTown = names == 1 && gap.separator == Separator::mark &&
                            m_reader.isMark(gap.end - 1, u',') && m_reader.endsPart(name.end);
        hasTown = hasTown || isTown;
        town = isTown ? name.end : town;
    }
    address.end = std::max(address.end, town);
    return address;
}

/// The piece that ends before this token: a unit, a postcode, a place.
AddressPart AddressExtension::pieceBefore(qsizetype end, qsizetype floor) const {
    constexpr qsizetype longest = 6;
    AddressPart best;
    for (qsizetype first = end - 1; first >= std::max(floor, end - longest); --first) {
        AddressPart piece = m_localities.unitAt(first);
        if (piece.end != end)
            piece = m_localities.at(first);
        if (piece.end != end)
            piece = postcodeAt(m_reader, first);
        if (piece.end == end || m_reader.afterDot(piece.end) == end)
            best = {first, end, piece.weight};
        if (m_reader.startsLine(first) || m_reader.isMarkOf(first - 1, u",;"))
            break;
    }
    return best;
}

AddressPart AddressExtension::backward(AddressPart address, qsizetype floor) const {
    // "Unit 5/12 George St": the word makes the first of the numbers a part of the building.
    const bool isUnit = address.first > floor && m_reader.continuesLine(address.first) &&
                        words::isUnit(m_reader.word(address.first - 1));
    address.first -= isUnit ? 1 : 0;
    qsizetype at = address.first;
    for (int count = 0; count < mostPieces && at > floor && !isWideGap(at); ++count) {
        const qsizetype end = m_reader.isMarkOf(at - 1, u",;，、،") ? at - 1 : at;
        const AddressPart piece = pieceBefore(end, floor);
        if (piece.isEmpty())
            break;
        at = piece.first;
        address.first = at;
        address.weight += piece.weight;
    }
    return address;
}

} // namespace quorvel
