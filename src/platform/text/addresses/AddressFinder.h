#pragma once

#include "platform/DataDetector.h"
#include "platform/text/Tokens.h"

namespace quorvel {

/// Finds postal addresses in one line or several.
class AddressFinder {
public:
    /// Appends what is found, by start; no two overlap.
    void find(const Tokens& tokens, QList<DataMatch>& found) const;
};

} // namespace quorvel
