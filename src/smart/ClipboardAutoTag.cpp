#include "smart/ClipboardAutoTag.h"

#include <algorithm>
#include <array>

namespace quorvel {

namespace {

/// In the order of the enumeration.
constexpr std::array<const char*, 20> names{
    "screenshot", "image",   "ticket",    "pullRequest",     "url",  "jiraIssue", "email", "phone",
    "date",       "address", "card",      "color",           "name", "iban",      "ip",    "uuid",
    "json",       "code",    "multiline", "terminalCommand",
};

} // namespace

QString rawName(ClipboardAutoTag tag) {
    return QString::fromLatin1(names.at(static_cast<std::size_t>(tag)));
}

std::optional<ClipboardAutoTag> autoTagNamed(const QString& rawName) {
    const auto found = std::find_if(names.begin(), names.end(), [&](const char* name) {
        return rawName == QLatin1StringView(name);
    });
    if (found == names.end())
        return std::nullopt;
    return static_cast<ClipboardAutoTag>(found - names.begin());
}

} // namespace quorvel
