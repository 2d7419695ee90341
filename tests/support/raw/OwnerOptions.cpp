#include "support/raw/OwnerOptions.h"

#include "support/raw/Options.h"

#include <fstream>
#include <sstream>

namespace quorvel::raw {

const char* const ownerUsage =
    R"(Usage: quorvel_raw_owner [OPTION...] [TYPE=BYTES | TYPE=@FILE]...
Owns a selection and answers requests for it by hand, well or badly.
  --selection NAME   CLIPBOARD unless told
  --text BYTES       short for UTF8_STRING=BYTES
  --secret           adds the hint that this is a secret
  --targets-only     answers TARGETS, nothing else
  --silent           never answers
  --withhold TYPE    lists this one with the others and never gives it
  --delay MS         waits before each answer
  --incr BYTES       sends everything in pieces of this size
  --stall-after N    stops once it has sent N bytes in pieces
  --burst N          copies the texts "burst 1" to "burst N", a new owner change each
  --every MS         time between them (5)
  --burst-text TEXT  instead of "burst"
  --await-fetch      does not copy the next one before somebody has asked for this one (or 2 s)
  --clear-after MS   gives up the selection on purpose (as SIGUSR1 does)
  --exit-after MS    ends (as SIGTERM does)
Prints "ready" when it owns the selection, "request TYPE TIME" for each request, "copied TEXT" and,
at the first request for it, "fetched MICROSECONDS" (since it was copied), "cleared", "lost" when
somebody else has taken the selection.
)";

namespace {

std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file)
        fail("cannot read " + path);
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}

/// The first "=" separates, unless it belongs to a parameter of the type ("text/x;v=1=abc").
OfferedType parseOffer(const std::string& argument) {
    std::size_t separator = argument.find('=');
    if (argument.substr(0, separator).find(';') != std::string::npos)
        separator = argument.find('=', separator + 1);
    if (separator == std::string::npos)
        fail("neither an option nor TYPE=BYTES: " + argument);
    const std::string value = argument.substr(separator + 1);
    return {argument.substr(0, separator),
            value.starts_with('@') ? contentOf(value.substr(1)) : value};
}

const OptionTable<OwnerOptions>& table() {
    using Milliseconds = OwnerOptions::Milliseconds;
    static const OptionTable<OwnerOptions> known{
        .flags =
            {
                {"--secret",
                 [](auto& o, const auto&) {
                     o.offers.insert(o.offers.begin(), {"x-kde-passwordManagerHint", "secret"});
                 }},
                {"--targets-only",
                 [](auto& o, const auto&) { o.answering = Answering::targetsOnly; }},
                {"--await-fetch", [](auto& o, const auto&) { o.awaitFetch = true; }},
                {"--silent", [](auto& o, const auto&) { o.answering = Answering::nothing; }},
            },
        .withValue =
            {
                {"--selection", [](auto& o, const auto& v) { o.selection = v; }},
                {"--text",
                 [](auto& o, const auto& v) {
                     o.offers.push_back({"UTF8_STRING", v});
                 }},
                {"--withhold", [](auto& o, const auto& v) { o.withheld = v; }},
                {"--delay", [](auto& o, const auto& v) { o.delay = Milliseconds(number(v)); }},
                {"--incr", [](auto& o, const auto& v) { o.incremental = number(v); }},
                {"--stall-after", [](auto& o, const auto& v) { o.stallAfter = number(v); }},
                {"--burst", [](auto& o, const auto& v) { o.burst = static_cast<int>(number(v)); }},
                {"--every",
                 [](auto& o, const auto& v) { o.burstInterval = Milliseconds(number(v)); }},
                {"--burst-text", [](auto& o, const auto& v) { o.burstText = v; }},
                {"--clear-after",
                 [](auto& o, const auto& v) { o.clearAfter = Milliseconds(number(v)); }},
                {"--exit-after",
                 [](auto& o, const auto& v) { o.exitAfter = Milliseconds(number(v)); }},
            },
        .other = [](auto& o, const auto& word) { o.offers.push_back(parseOffer(word)); },
    };
    return known;
}

} // namespace

OwnerOptions ownerOptions(const std::vector<std::string>& arguments) {
    const OwnerOptions options = readOptions(arguments, table());
    if (options.offers.empty() && options.burst == 0)
        fail(ownerUsage);
    return options;
}

} // namespace quorvel::raw
