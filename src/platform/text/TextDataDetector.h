#pragma once

#include "platform/DataDetector.h"
#include "platform/text/Region.h"
#include "platform/text/addresses/AddressFinder.h"
#include "platform/text/dates/DateFinder.h"
#include "platform/text/phones/PhoneFinder.h"

namespace quorvel {

/// The data detector that is all ours: asks one finder for each kind and settles their disputes.
class TextDataDetector final : public DataDetector {
public:
    explicit TextDataDetector(const Region& region);

    /// Of a longer text only this many UTF-16 units from its beginning are looked at.
    static constexpr qsizetype mostUnits = 128 * 1024;

    QList<DataMatch> matches(const QString& text) const override;
    PhoneParts phoneParts(const QString& international) const override;

private:
    PhoneFinder m_phones;
    DateFinder m_dates;
    AddressFinder m_addresses;
};

} // namespace quorvel
