#pragma once

#include "platform/text/addresses/AddressReader.h"

namespace quorvel {

/// Reads what stands in an address beside the street: town, postcode, state, country, and the parts
/// of a building.
class Localities {
public:
    explicit Localities(const AddressReader& reader)
        : m_reader(reader) {}

    /// Something that is a part of an address by its own looks and begins at this token; empty for
    /// nothing of the kind.
    AddressPart at(qsizetype index) const;

    /// "Apt 4B", "2º B", "кв. 5", "Floor 3"
    AddressPart unitAt(qsizetype index) const;

    /// A run of capitalised words before anything that `at` knows: perhaps a town.
    AddressPart nameAt(qsizetype index) const;

    /// "NY", "(RM)" at the end of a part: a region by its letters, once the town is known.
    AddressPart lettersAt(qsizetype index) const;

private:
    AddressPart postcodeTown(qsizetype index) const;
    AddressPart regionAt(qsizetype index) const;
    AddressPart withPostcode(AddressPart region, bool needsEnd) const;
    AddressPart knownPlaceAt(qsizetype index) const;
    AddressPart announcedPlaceAt(qsizetype index) const;
    AddressPart districtAt(qsizetype index) const;
    qsizetype placeEnd(qsizetype index, bool (*isPlace)(QStringView)) const;
    qsizetype townEnd(qsizetype index) const;
    qsizetype withRiver(qsizetype town) const;
    qsizetype afterTown(qsizetype index) const;

    const AddressReader& m_reader;
};

} // namespace quorvel
