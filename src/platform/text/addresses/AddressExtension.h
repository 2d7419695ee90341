#pragma once

#include "platform/text/addresses/Localities.h"

namespace quorvel {

/// Widens a street or post box over the parts of the same address beside it.
class AddressExtension {
public:
    explicit AddressExtension(const AddressReader& reader)
        : m_reader(reader)
        , m_localities(reader) {}

    /// The part with all that follows and belongs to it.
    AddressPart forward(AddressPart address) const;

    /// The part with all that precedes and belongs to it, not before `floor`.
    AddressPart backward(AddressPart address, qsizetype floor) const;

private:
    enum class Separator { none, blank, mark, line };

    struct Gap {
        qsizetype end;
        Separator separator;
    };

    Gap gapAt(qsizetype index) const;
    bool isWideGap(qsizetype index) const;
    AddressPart pieceBefore(qsizetype end, qsizetype floor) const;

    const AddressReader& m_reader;
    Localities m_localities;
};

} // namespace quorvel
