#pragma once

#include "platform/text/addresses/AddressReader.h"

namespace quorvel {

/// The streets whose house number is, or is followed by, the number at this token. Each gives an
/// empty part where it sees none.
class Streets {
public:
    explicit Streets(const AddressReader& reader)
        : m_reader(reader) {}

    /// The best of all ways to read it.
    AddressPart at(qsizetype index) const;

    /// The same with the number in letters: "One Microsoft Way".
    AddressPart atSpelled(qsizetype index) const;

private:
    /// [first, end) is the number; the name before it ends with the token `nameLast`, -1 for none.
    struct HouseNumber {
        qsizetype first;
        qsizetype end;
        qsizetype nameLast;
    };

    /// "350 5th Ave"
    AddressPart numberNameSuffix(const HouseNumber& number) const;

    /// "10 rue de Rivoli"
    AddressPart numberPrefixName(const HouseNumber& number) const;

    /// "Calle de Alcalá, 45", "ул. Ленина, д. 10"
    AddressPart prefixNameNumber(const HouseNumber& number) const;

    /// "Hauptstraße 5", "Невский проспект, 28"
    AddressPart nameSuffixNumber(const HouseNumber& number) const;

    /// "Calle 72 # 10-34"
    AddressPart numberedStreet(const HouseNumber& number) const;

    /// "Unter den Linden 77"; "Zeil 106"
    AddressPart bareNameNumber(const HouseNumber& number) const;

    /// "25 Piccadilly"
    AddressPart numberBareName(const HouseNumber& number) const;

    /// The last token of the name before a house number, behind "No.", "д." and a comma; -1 for
    /// none.
    qsizetype nameBefore(qsizetype number) const;

    // In tenths like all weights.
    static constexpr int contextWeight = 5;
    static constexpr int doubtful = 8;
    static constexpr int unlikely = 10;
    static constexpr int veryUnlikely = 20;

    /// In tokens.
    static constexpr qsizetype longestName = 9;

    AddressPart weighed(AddressPart street) const;
    AddressPart unlessCounting(AddressPart street, const HouseNumber& number) const;
    AddressPart suffixedName(qsizetype nameStart) const;
    int doubtsOf(const HouseNumber& number, qsizetype nameStart, qsizetype end) const;
    bool isName(qsizetype index) const;
    qsizetype nameStartBefore(qsizetype index) const;
    bool isItalianShort(qsizetype index) const;
    int prefixAt(qsizetype index) const;
    qsizetype ordinalEnd(qsizetype index) const;
    bool isLead(qsizetype index) const;
    bool isLedIn(qsizetype index) const;
    bool followsBadly(qsizetype number) const;

    const AddressReader& m_reader;
};

/// "P.O. Box 1234", "Postfach 12 34 56", "а/я 5", with the number at this token.
AddressPart postBoxAt(const AddressReader& reader, qsizetype number);

} // namespace quorvel
