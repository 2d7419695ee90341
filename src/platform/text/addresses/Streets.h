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
    AddressPart at(qsizetype number) const;

private:
    /// "350 5th Ave"
    AddressPart numberNameSuffix(qsizetype number) const;

    /// "10 rue de Rivoli"
    AddressPart numberPrefixName(qsizetype number) const;

    /// "Calle de Alcalá, 45", "ул. Ленина, д. 10"
    AddressPart prefixNameNumber(qsizetype number) const;

    /// "Hauptstraße 5", "Невский проспект, 28"
    AddressPart nameSuffixNumber(qsizetype number) const;

    /// "Calle 72 # 10-34"
    AddressPart numberedStreet(qsizetype number) const;

    /// "Unter den Linden 77"; "Zeil 106"
    AddressPart bareNameNumber(qsizetype number) const;

    /// "25 Piccadilly"
    AddressPart numberBareName(qsizetype number) const;

    /// The last token of the name before a house number, behind "No.", "д." and a comma; -1 for
    /// none.
    qsizetype nameBefore(qsizetype number) const;

    AddressPart weighed(AddressPart street) const;
    AddressPart unlessCounting(AddressPart street) const;
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
