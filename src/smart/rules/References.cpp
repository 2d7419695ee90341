#include "smart/rules/References.h"

#include "smart/rules/Runs.h"

#include <QUrl>

#include <algorithm>
#include <array>

namespace quorvel {

namespace {

/// Where the ASCII letters and digits that end at `end` begin; no further back than a key reaches.
qsizetype startOfKeyLetters(QStringView text, qsizetype end) {
    constexpr qsizetype mostLetters = 10;
    qsizetype start = end;
    while (start > 0 && end - start <= mostLetters &&
           (isAsciiLetter(text[start - 1]) || isAsciiDigit(text[start - 1])))
        --start;
    return end - start > mostLetters ? end : start;
}

qsizetype endOfDigits(QStringView text, qsizetype start) {
    while (start < text.size() && isDecimalDigit(text[start]))
        ++start;
    return start;
}

/// The key around one hyphen.
QStringView issueKeyAround(QStringView text, qsizetype hyphen) {
    constexpr qsizetype mostDigits = 8;
    const qsizetype end =
        endOfDigits(text.first(std::min(text.size(), hyphen + mostDigits + 2)), hyphen + 1);
    const qsizetype digits = end - hyphen - 1;
    if (digits == 0 || digits > mostDigits)
        return {};
    const qsizetype start = startOfKeyLetters(text, hyphen);
    const bool isKey = hyphen - start >= 2 && isAsciiLetter(text[start]) &&
                       isWordBoundary(text, start) && isWordBoundary(text, end);
    return isKey ? text.sliced(start, end - start) : QStringView();
}

QString digitsAfter(const QString& path, QStringView marker) {
    for (qsizetype at = path.indexOf(marker); at >= 0; at = path.indexOf(marker, at + 1)) {
        const qsizetype start = at + marker.size();
        const qsizetype end = endOfDigits(path, start);
        if (end > start)
            return path.sliced(start, end - start);
    }
    return {};
}

/// The number of a request whose "PR" or "MR" ends at `position`; empty when none follows.
QStringView numberAt(QStringView text, qsizetype position) {
    while (position < text.size() && isPatternSpace(text[position]))
        ++position;
    if (position < text.size() && text[position] == u'#')
        ++position;
    const qsizetype end = endOfDigits(text, position);
    const bool isWhole = end > position && isWordBoundary(text, end);
    return isWhole ? text.sliced(position, end - position) : QStringView();
}

using AllButLabelEnds = AllBut<u'R', u'r'>;

QString labelledNumber(QStringView text) {
    for (qsizetype i = endOfRun<AllButLabelEnds>(text, 1); i < text.size();
         i = endOfRun<AllButLabelEnds>(text, i + 1)) {
        if (!QStringView(u"PpMm").contains(text[i - 1]) || !isWordBoundary(text, i - 1))
            continue;
        const QStringView number = numberAt(text, i + 1);
        if (!number.isEmpty())
            return number.toString();
    }
    return {};
}

/// How links to issues look on the known trackers.
struct TrackerRule {
    enum class Host { endsWith, contains };

    Host host;
    QStringView name;
    QStringView path;
    QStringView alsoInPath = {};
};

constexpr std::array trackerRules{
    TrackerRule{TrackerRule::Host::endsWith, u"linear.app", u"/issue/"},
    TrackerRule{TrackerRule::Host::contains, u"youtrack", u"/issue/"},
    TrackerRule{TrackerRule::Host::contains, u"youtrack", u"/articles/"},
    TrackerRule{TrackerRule::Host::endsWith, u"github.com", u"/issues/"},
    TrackerRule{TrackerRule::Host::endsWith, u"gitlab.com", u"/-/issues/"},
    TrackerRule{TrackerRule::Host::endsWith, u"dev.azure.com", u"/_workitems/edit/"},
    TrackerRule{TrackerRule::Host::contains, u"atlassian.net", u"/browse/"},
    TrackerRule{TrackerRule::Host::contains, u"atlassian.net", u"/jira/", u"/issue/"},
};

} // namespace

QString caseNormalized(const QString& text) {
    constexpr qsizetype mostUnits = 16 * 1024;
    const bool isAscii = std::all_of(text.begin(), text.begin() + std::min(text.size(), mostUnits),
                                     [](QChar c) { return c.unicode() < 0x80; });
    return isAscii || text.size() > mostUnits ? text : text.toUpper();
}

QString issueKey(QStringView text) {
    for (qsizetype at = text.indexOf(u'-'); at >= 0; at = text.indexOf(u'-', at + 1)) {
        const QStringView key = issueKeyAround(text, at);
        if (!key.isEmpty())
            return key.toString().toUpper();
    }
    return {};
}

QString pullRequestNumber(QStringView text, const std::optional<QUrl>& firstLink) {
    if (firstLink) {
        const QString path = firstLink->path();
        for (const QStringView marker :
             {QStringView(u"/pull/"), QStringView(u"/-/merge_requests/")})
            if (const QString number = digitsAfter(path, marker); !number.isEmpty())
                return number;
    }
    return labelledNumber(text);
}

bool isIssueTrackerLink(const QUrl& link, bool hasIssueKey) {
    const QString host = link.host().toLower();
    const QString path = link.path().toLower();
    if (host.isEmpty())
        return false;
    if (hasIssueKey && path.contains(u"/browse/"))
        return true;
    return std::any_of(trackerRules.begin(), trackerRules.end(), [&](const TrackerRule& rule) {
        const bool isHost = rule.host == TrackerRule::Host::endsWith ? host.endsWith(rule.name)
                                                                     : host.contains(rule.name);
        return isHost && path.contains(rule.path) && path.contains(rule.alsoInPath);
    });
}

} // namespace quorvel
