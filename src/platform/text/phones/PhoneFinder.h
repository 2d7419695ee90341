#pragma once

#include "platform/DataDetector.h"
#include "platform/text/Region.h"

namespace quorvel {

/// Finds telephone numbers that the world's numbering plans have: in international form of any
/// country, in national form of the user's.
class PhoneFinder {
public:
    explicit PhoneFinder(const Region& region)
        : m_region(region) {}

    /// Appends what is found, by start. Judges no more than some hundred candidates of one text.
    void find(QStringView text, QList<DataMatch>& found) const;

private:
    Region m_region;
};

} // namespace quorvel
