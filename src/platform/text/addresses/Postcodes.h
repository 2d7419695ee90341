#pragma once

#include "platform/text/addresses/AddressReader.h"

namespace quorvel {

/// The postcode that begins at this token, with its country's letter ("D-10115"); empty for none.
AddressPart postcodeAt(const AddressReader& reader, qsizetype index);

/// A weight from which on a postcode needs no town beside it.
inline constexpr int unmistakablePostcode = 30;

} // namespace quorvel
