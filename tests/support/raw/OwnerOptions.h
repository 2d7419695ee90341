#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace quorvel::raw {

struct OfferedType {
    std::string type;
    std::string bytes;
};

enum class Answering {
    everything,
    targetsOnly, ///< Tells what it has and then gives none of it.
    nothing,     ///< Never answers at all.
};

struct OwnerOptions {
    using Milliseconds = std::chrono::milliseconds;

    std::string selection = "CLIPBOARD";
    std::vector<OfferedType> offers; ///< In the order in which they are listed to requestors.
    Answering answering = Answering::everything;
    std::string withheld;                   ///< The one type that is listed and never given.
    Milliseconds delay{0};                  ///< Before each answer.
    std::optional<std::size_t> incremental; ///< Everything in pieces of this many bytes.
    std::optional<std::size_t> stallAfter;  ///< No further piece once this many bytes are sent.
    int burst = 0;                          ///< Number of texts to copy one after the other.
    Milliseconds burstInterval{5};
    std::string burstText = "burst";
    bool awaitFetch =
        false; ///< The next text of a burst comes once somebody has asked for this one.
    std::optional<Milliseconds> clearAfter;
    std::optional<Milliseconds> exitAfter;
};

extern const char* const ownerUsage;

/// Ends the program with a message when the arguments make no sense.
OwnerOptions ownerOptions(const std::vector<std::string>& arguments);

} // namespace quorvel::raw
