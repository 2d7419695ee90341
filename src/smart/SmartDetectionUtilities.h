#pragma once

#include "smart/ClipboardAutoTag.h"

#include <functional>

namespace quorvel {

/// The tests on one text that type plugins put together. What several of them share is worked out
/// when first asked for, and once.
struct SmartDetectionUtilities {
    using Test = std::function<bool()>;

    Test isLikelySingleValue;
    std::function<bool(ClipboardAutoTag)> containsDetectedDataTag;
    Test hasJiraIssueKey;
    Test looksLikePullRequestReference;
    Test looksLikeIssueTrackerURL;
    Test looksLikePersonName;
    Test hasIBANCandidate;
    Test hasIPv4Candidate;
    Test hasUUIDOutsideLinks;
    Test hasValidCardNumber;
    Test isJSON;
    Test looksLikeCode;
    Test hasColorValue;
    Test isMultiline;
    Test looksLikeTerminalCommand;
};

} // namespace quorvel
