#pragma once

#include "platform/DataDetector.h"
#include "platform/text/Region.h"
#include "platform/text/Tokens.h"

namespace quorvel {

/// Finds dates and times: numeric, with month names, weekdays, relative ones, ranges.
class DateFinder {
public:
    explicit DateFinder(const Region& region)
        : m_region(region) {}

    /// Appends what is found, by start; no two overlap.
    void find(const Tokens& tokens, QList<DataMatch>& found) const;

private:
    Region m_region;
};

} // namespace quorvel
