#pragma once

#include <QString>

#include <optional>

class QUrl;

namespace quorvel {

/// References to issues and pull requests.

/// The text as `issueKey` and `hasIBANCandidate` take it: upper-cased where that changes more than
/// the letters A to Z, so that "straße-1" counts as "STRASSE-1". A very long text stays as it is.
QString caseNormalized(const QString& text);

/// The first key of an issue tracker ("PROJ-42"), in upper case, of a text by `caseNormalized`:
/// \b([A-Z][A-Z0-9]{1,9}\-\d{1,8})\b without regard to case. Empty without one.
QString issueKey(QStringView text);

/// The number of a pull or merge request: in the path of the text's first link, or else after "PR"
/// or "MR" (\b(?:PR|MR)\s*#?(\d+)\b without regard to case). Empty without one.
QString pullRequestNumber(QStringView text, const std::optional<QUrl>& firstLink);

/// Whether a link leads to an issue on one of the known trackers.
bool isIssueTrackerLink(const QUrl& link, bool hasIssueKey);

} // namespace quorvel
