#include "platform/text/addresses/AddressWords.h"
#include "platform/text/addresses/Streets.h"

namespace quorvel {

namespace {

/// The words of a post box, the last one first.
struct BoxName {
    int weight;
    std::u16string_view last;
    std::u16string_view before;
    std::u16string_view first;
};

constexpr BoxName names[] = {
    {30, u"box", u"po", {}},
    {30, u"box", u"o", u"p"},
    {30, u"box", u"office", u"post"},
    {30, u"box", u"gpo", {}},
    {30, u"bag", u"private", {}},
    {30, u"bag", u"locked", {}},
    {30, u"я", u"а", {}},
    {30, u"ящик", u"абонентскии", {}},
    {30, u"postale", u"boite", {}},
    {30, u"postale", u"casella", {}},
    {30, u"postal", u"caixa", {}},
    {30, u"postal", u"apartado", {}},
    {30, u"postal", u"casilla", {}},
    {30, u"correos", u"de", u"apartado"},
    {25, u"postfach", {}, {}},
    {25, u"postbus", {}, {}},
    {25, u"postboks", {}, {}},
    {25, u"pobox", {}, {}},
    {20, u"pob", {}, {}},
    {20, u"apdo", {}, {}},
    {15, u"apartado", {}, {}},
    {15, u"casilla", {}, {}},
    {15, u"bp", {}, {}},
    {10, u"cs", {}, {}},
    {10, u"box", {}, {}},
    {30, u"pocztowa", u"skrytka", {}},
};

/// The token before this one, behind a dot or stroke.
qsizetype previous(const AddressReader& reader, qsizetype index) {
    return index - (reader.isMarkOf(index - 1, u"./") ? 2 : 1);
}

AddressPart nameEndingAt(const AddressReader& reader, qsizetype last, const BoxName& name) {
    qsizetype first = last;
    for (const std::u16string_view part : {name.last, name.before, name.first}) {
        if (part.empty())
            break;
        first = part == name.last ? last : previous(reader, first);
        if (reader.word(first) != QStringView(part))
            return {};
    }
    const bool isSign = name.before.empty() && !reader.isCapital(first);
    return {first, last + 1, name.weight - (isSign ? 10 : 0)};
}

/// Behind "1234" or "12 34 56".
qsizetype boxNumberEnd(const AddressReader& reader, qsizetype number) {
    constexpr int mostDigits = 8;
    constexpr int mostGroups = 4;
    qsizetype end = number;
    while (end - number < mostGroups && reader.digits(end) > 0 &&
           reader.digits(end) <= mostDigits &&
           (end == number || (reader.continuesLine(end) && reader.digits(end) < 4)))
        ++end;
    return reader.isGlued(end) && !reader.endsPart(end) ? number : end;
}

} // namespace

AddressPart postBoxAt(const AddressReader& reader, qsizetype number) {
    qsizetype last = number - 1;
    while (number - last < 3 && reader.isMarkOf(last, u".:#№°"))
        --last;
    if (addressWords::isNumberWord(reader.word(last)))
        --last;
    const qsizetype end = boxNumberEnd(reader, number);
    if (!reader.isWord(last) || end == number)
        return {};
    for (const BoxName& name : names) {
        AddressPart box = nameEndingAt(reader, last, name);
        if (box.isEmpty())
            continue;
        box.end = end;
        box.weight += reader.beginsPart(box.first) && reader.endsPart(end) ? 5 : 0;
        return box;
    }
    return {};
}

} // namespace quorvel
