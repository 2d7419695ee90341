#include "smart/TextFacts.h"

#include "smart/rules/ColorValue.h"
#include "smart/rules/JsonText.h"
#include "smart/rules/NumberPatterns.h"
#include "smart/rules/References.h"
#include "smart/rules/TerminalCommand.h"
#include "smart/rules/TextShapes.h"

#include <algorithm>

namespace quorvel {

namespace {

ClipboardAutoTag tagOf(DataKind kind) {
    switch (kind) {
    case DataKind::url:
        return ClipboardAutoTag::url;
    case DataKind::email:
        return ClipboardAutoTag::email;
    case DataKind::phone:
        return ClipboardAutoTag::phone;
    case DataKind::date:
        return ClipboardAutoTag::date;
    case DataKind::address:
        return ClipboardAutoTag::address;
    }
    Q_UNREACHABLE();
}

template <typename Value, typename Work>
const Value& once(std::optional<Value>& value, const Work& work) {
    if (!value)
        value.emplace(work());
    return *value;
}

} // namespace

SmartDetectionUtilities TextFacts::utilities() {
    return {
        .isLikelySingleValue = [this] { return isSingleValue(); },
        .containsDetectedDataTag = [this](ClipboardAutoTag tag) { return hasData(tag); },
        .hasJiraIssueKey = [this] { return !issueKeyFound().isEmpty(); },
        .looksLikePullRequestReference =
            [this] { return !pullRequestNumber(m_text, firstLink()).isEmpty(); },
        .looksLikeIssueTrackerURL = [this] { return isIssueTrackerURL(); },
        .looksLikePersonName = [this] { return isPersonName(); },
        .hasIBANCandidate = [this] { return quorvel::hasIBANCandidate(caseNormalizedText()); },
        .hasIPv4Candidate = [this] { return quorvel::hasIPv4Candidate(m_text); },
        .hasUUIDOutsideLinks = [this] { return hasUUIDOutsideLinks(); },
        .hasValidCardNumber = [this] { return hasCard(); },
        .isJSON = [this] { return isJSON(); },
        .looksLikeCode = [this] { return quorvel::looksLikeCode(m_text); },
        .hasColorValue = [this] { return colorValue(m_text).has_value(); },
        .isMultiline = [this] { return m_text.contains(u'\n'); },
        .looksLikeTerminalCommand = [this] { return quorvel::looksLikeTerminalCommand(m_text); },
    };
}

bool TextFacts::isSingleValue() {
    return once(m_isSingleValue, [this] { return isLikelySingleValue(m_text); });
}

const QList<DataMatch>& TextFacts::matches() {
    return once(m_matches, [this] { return m_dataDetector.matches(m_text); });
}

bool TextFacts::hasData(ClipboardAutoTag tag) {
    const auto& found = matches();
    return std::any_of(found.begin(), found.end(),
                       [tag](const DataMatch& match) { return tagOf(match.kind) == tag; });
}

const QString& TextFacts::caseNormalizedText() {
    return once(m_caseNormalized, [this] { return caseNormalized(m_text); });
}

const QString& TextFacts::issueKeyFound() {
    return once(m_issueKey, [this] { return issueKey(caseNormalizedText()); });
}

bool TextFacts::hasCard() {
    return once(m_hasCard, [this] { return !cardDigits(m_text).isEmpty(); });
}

std::optional<QUrl> TextFacts::firstLink() {
    const auto& found = matches();
    const auto link = std::find_if(found.begin(), found.end(),
                                   [](const DataMatch& match) { return match.isLink(); });
    return link == found.end() ? std::nullopt : std::optional(QUrl(link->value));
}

bool TextFacts::isIssueTrackerURL() {
    const auto link = firstLink();
    return link && isIssueTrackerLink(*link, !issueKeyFound().isEmpty());
}

bool TextFacts::isPersonName() const {
    return isWrittenLikePersonName(m_text) && m_nameTagger.hasPersonalName(m_text.trimmed());
}

bool TextFacts::hasUUIDOutsideLinks() {
    return hasUUID(m_text, [this](qsizetype start, qsizetype end) {
        const auto& found = matches();
        return std::none_of(found.begin(), found.end(), [&](const DataMatch& match) {
            return match.isLink() && match.start < end && match.end() > start;
        });
    });
}

bool TextFacts::isJSON() const {
    return isJsonDocument(m_text);
}

} // namespace quorvel
