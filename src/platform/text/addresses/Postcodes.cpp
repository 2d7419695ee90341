#include "platform/text/addresses/Postcodes.h"

#include <array>

namespace quorvel {

namespace {

/// What stands before one piece of a postcode.
enum class Joint { glued, blank, hyphen, blankOrGlued };

/// So many digits or capital letters.
struct Piece {
    enum class Kind { digits, letters } kind;
    int least;
    int most;
    Joint joint = Joint::glued;
};

struct Shape {
    int weight;
    int count;
    std::array<Piece, 6> pieces;
};

constexpr auto digits = Piece::Kind::digits;
constexpr auto letters = Piece::Kind::letters;

constexpr Shape shapes[] = {
    // SW1A 1AA
    {35,
     5,
     {{{letters, 1, 2},
       {digits, 1, 2},
       {letters, 1, 1},
       {digits, 1, 1, Joint::blankOrGlued},
       {letters, 2, 2}}}},
    // NW1 6XE, and without the blank
    {35, 4, {{{letters, 1, 2}, {digits, 1, 2}, {digits, 1, 1, Joint::blank}, {letters, 2, 2}}}},
    {25, 3, {{{letters, 1, 2}, {digits, 2, 3}, {letters, 2, 2}}}},
    // K1A 0A9
    {35,
     6,
     {{{letters, 1, 1},
       {digits, 1, 1},
       {letters, 1, 1},
       {digits, 1, 1, Joint::blankOrGlued},
       {letters, 1, 1},
       {digits, 1, 1}}}},
    // D02 X285, T12 XY45, D04 C5Y6
    {30, 4, {{{letters, 1, 1}, {digits, 2, 2}, {letters, 1, 2, Joint::blank}, {digits, 2, 3}}}},
    {30,
     6,
     {{{letters, 1, 1},
       {digits, 2, 2},
       {letters, 1, 1, Joint::blank},
       {digits, 1, 1},
       {letters, 1, 1},
       {digits, 1, 1}}}},
    // D-10115, CH-8001, SE-111 22
    {30, 3, {{{letters, 1, 2}, {digits, 3, 3, Joint::hyphen}, {digits, 2, 2, Joint::blank}}}},
    {30, 2, {{{letters, 1, 2}, {digits, 4, 6, Joint::hyphen}}}},
    // C1005, C1005AAB
    {30, 3, {{{letters, 1, 1}, {digits, 4, 4}, {letters, 3, 3}}}},
    {12, 2, {{{letters, 1, 1}, {digits, 4, 4}}}},
    // 1012 LG
    {30, 2, {{{digits, 4, 4}, {letters, 2, 2, Joint::blankOrGlued}}}},
    // 01310-100, 100-0001, 1000-205, 00-001, 62704-1234
    {30, 2, {{{digits, 5, 5}, {digits, 3, 4, Joint::hyphen}}}},
    {30, 2, {{{digits, 3, 3}, {digits, 4, 4, Joint::hyphen}}}},
    {25, 2, {{{digits, 4, 4}, {digits, 3, 3, Joint::hyphen}}}},
    {30, 2, {{{digits, 2, 2}, {digits, 3, 3, Joint::hyphen}}}},
    // 111 22, 560 001
    {20, 2, {{{digits, 3, 3}, {digits, 2, 2, Joint::blank}}}},
    {15, 2, {{{digits, 3, 3}, {digits, 3, 3, Joint::blank}}}},
    {20, 1, {{{digits, 5, 5}}}},
    {20, 1, {{{digits, 6, 6}}}},
    {12, 1, {{{digits, 4, 4}}}},
};

bool isJoined(const AddressReader& reader, qsizetype index, Joint joint) {
    const bool isGlued = reader.isGlued(index);
    return joint == Joint::glued          ? isGlued
           : joint == Joint::blank        ? !isGlued && reader.continuesLine(index)
           : joint == Joint::blankOrGlued ? reader.continuesLine(index)
                                          : isGlued;
}

bool fits(const AddressReader& reader, qsizetype index, const Piece& piece) {
    const bool isKind = piece.kind == digits ? reader.isNumber(index) : reader.isUpper(index);
    const int length = isKind ? reader.tokens().at(index).length : 0;
    return length >= piece.least && length <= piece.most;
}

/// Behind the postcode of this shape; `start` where it is none.
qsizetype endOf(const AddressReader& reader, qsizetype start, const Shape& shape) {
    qsizetype at = start;
    for (int i = 0; i < shape.count; ++i, ++at) {
        const Piece& piece = shape.pieces[std::size_t(i)];
        if (piece.joint == Joint::hyphen && i > 0) {
            if (!reader.isHyphen(at))
                return start;
            ++at;
        }
        if ((i > 0 && !isJoined(reader, at, piece.joint)) || !fits(reader, at, piece))
            return start;
    }
    return at;
}

bool endsAlone(const AddressReader& reader, qsizetype end) {
    if (!reader.isGlued(end))
        return true;
    const bool goesOn =
        reader.isMarkOf(end, u".,-") && reader.isGlued(end + 1) && reader.isNumber(end + 1);
    return !reader.isWord(end) && !reader.isNumber(end) && !goesOn &&
           !reader.isMarkOf(end, u"%€$£@=_/\\+");
}

/// 1900 to 2099 is rather a year.
bool isYear(const AddressReader& reader, qsizetype index) {
    const int value = reader.tokens().at(index).value;
    return reader.digits(index) == 4 && value >= 1900 && value < 2100;
}

} // namespace

AddressPart postcodeAt(const AddressReader& reader, qsizetype index) {
    if (!reader.isNumber(index) &&
        !(reader.isUpper(index) && reader.tokens().at(index).length <= 2))
        return {};
    if (reader.isGlued(index) && !reader.isMarkOf(index - 1, u",(-–|/:[〒"))
        return {};
    for (const Shape& shape : shapes) {
        const qsizetype end = endOf(reader, index, shape);
        if (end == index || !endsAlone(reader, end))
            continue;
        constexpr int asYear = 10;
        return {index, end, shape.count == 1 && isYear(reader, index) ? asYear : shape.weight};
    }
    return {};
}

} // namespace quorvel
