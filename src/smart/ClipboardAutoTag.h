#pragma once

#include <QString>

#include <optional>

namespace quorvel {

/// What a clip was found to be. The order is the order of reports.
enum class ClipboardAutoTag {
    screenshot,
    image,
    ticket,
    pullRequest,
    url,
    jiraIssue,
    email,
    phone,
    date,
    address,
    card,
    color,
    name,
    iban,
    ip,
    uuid,
    json,
    code,
    multiline,
    terminalCommand,
};

/// The name under which a tag is stored.
QString rawName(ClipboardAutoTag tag);

/// Absent for a name that no tag has (any more).
std::optional<ClipboardAutoTag> autoTagNamed(const QString& rawName);

} // namespace quorvel
