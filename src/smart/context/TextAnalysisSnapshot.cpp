#include "smart/context/TextAnalysisSnapshot.h"

#include "smart/context/DottedIdentifier.h"
#include "smart/context/UrlParts.h"
#include "smart/rules/NumberPatterns.h"
#include "smart/rules/References.h"
#include "smart/rules/TerminalCommand.h"
#include "smart/rules/TextShapes.h"

#include <algorithm>

namespace quorvel {

namespace {

std::optional<QString> unlessEmpty(const QString& text) {
    return text.isEmpty() ? std::nullopt : std::optional(text);
}

const DataMatch* firstOf(DataKind kind, const QList<DataMatch>& matches) {
    const auto found = std::find_if(matches.begin(), matches.end(),
                                    [kind](const DataMatch& match) { return match.kind == kind; });
    return found == matches.end() ? nullptr : &*found;
}

std::optional<QUrl> firstLink(const QList<DataMatch>& matches) {
    const auto link = std::find_if(matches.begin(), matches.end(),
                                   [](const DataMatch& match) { return match.isLink(); });
    return link == matches.end() ? std::nullopt : std::optional(QUrl(link->value));
}

/// Digits of any script as those of ASCII, nothing else.
QString asciiDigits(QStringView text) {
    QString digits;
    for (const QChar c : text)
        if (c.isDigit())
            digits += QChar(u'0' + c.digitValue());
    return digits;
}

/// Whether a number begins with the country's code, as it stands in the text.
bool isWrittenInternationally(QStringView written) {
    const auto first = std::find_if(written.begin(), written.end(), [](QChar c) {
        return c.isDigit() || c == u'+' || c == QChar(0xFF0B);
    });
    return first != written.end() && (!first->isDigit() || asciiDigits(written).startsWith(u"00"));
}

/// One value is looked at as a whole; of more, no word is cut, for half a link is another link.
QList<DataMatch> matchesIn(const QString& text, const DataDetector& detector) {
    if (text.size() <= mostSearchedUnits || isLikelySingleValue(text))
        return detector.matches(text);
    qsizetype end = mostSearchedUnits;
    while (end > 0 && !text[end].isSpace())
        --end;
    return detector.matches(text.left(end));
}

void takeLinks(TextAnalysisSnapshot& snapshot, const QList<DataMatch>& matches) {
    for (const DataMatch& match : matches)
        if (match.isLink())
            snapshot.linkRanges.append({match.start, match.length});
    if (const DataMatch* mail = firstOf(DataKind::email, matches))
        snapshot.mailLink = QUrl(mail->value);
    const DataMatch* link = firstOf(DataKind::url, matches);
    const QUrl url = link ? urlFromLink(link->value) : QUrl();
    if (!url.isValid() || url.isEmpty())
        return;
    snapshot.url = url;
    snapshot.urlHost = unlessEmpty(hostAsWritten(url, link->value));
    snapshot.urlLastSegment = unlessEmpty(lastPathSegment(url));
    for (const auto& [name, value] : encodedQueryParameters(url))
        snapshot.urlQueryParameters.append({decodedQueryText(name), decodedQueryText(value)});
}

void takePhone(TextAnalysisSnapshot& snapshot, QStringView text, const QList<DataMatch>& matches,
               const DataDetector& detector) {
    const DataMatch* match = firstOf(DataKind::phone, matches);
    if (!match)
        return;
    const PhoneParts parts = detector.phoneParts(match->value);
    const bool isInternational = isWrittenInternationally(text.mid(match->start, match->length));
    const QString local = asciiDigits(parts.localNumber);
    snapshot.phone = unlessEmpty(match->value);
    snapshot.phoneDigits =
        unlessEmpty(isInternational || local.isEmpty() ? asciiDigits(match->value) : local);
    snapshot.phoneCountryCode = unlessEmpty(parts.countryCode);
    snapshot.phoneLocalNumber = unlessEmpty(parts.localNumber);
}

} // namespace

TextAnalysisSnapshot analysedText(const QString& text, const DataDetector& detector) {
    TextAnalysisSnapshot snapshot;
    if (text.size() > mostAnalysedUnits)
        return snapshot;
    const QList<DataMatch> matches = matchesIn(text, detector);
    if (looksLikeTerminalCommand(text))
        snapshot.terminalCommand = text.trimmed();
    snapshot.jiraIssueKey = unlessEmpty(issueKey(caseNormalized(text)));
    snapshot.pullRequestID = unlessEmpty(pullRequestNumber(text, firstLink(matches)));
    takeLinks(snapshot, matches);
    takePhone(snapshot, text, matches, detector);
    const QStringList parts = partsOfDottedIdentifier(text);
    if (!parts.isEmpty())
        snapshot.dotParts = parts;
    snapshot.cardDigits = unlessEmpty(asciiDigits(cardDigits(text)));
    return snapshot;
}

} // namespace quorvel
