#include "platform/text/phones/PhoneFinder.h"

#include "platform/text/phones/PhoneCandidate.h"
#include "platform/text/phones/PhoneNumbers.h"

#include <algorithm>

namespace quorvel {

namespace {

/// Judging one costs some ten microseconds.
constexpr int mostJudged = 200;

/// 2019-2024, 2024.2025
bool areYears(const PhoneCandidate& candidate) {
    const auto isYear = [](QStringView digits) {
        return digits.startsWith(u"19") || digits.startsWith(u"20");
    };
    return candidate.groups == QList<int>{4, 4} && isYear(QStringView(candidate.digits).left(4)) &&
           isYear(QStringView(candidate.digits).mid(4));
}

/// 3.14159265, 12.345678: one dot alone separates no groups of a telephone number.
bool isDecimal(const PhoneCandidate& candidate) {
    return candidate.groups.size() == 2 && candidate.separators == u"." && !candidate.hasBrackets;
}

/// 1 234 567, 1.234.567.890: thousands.
bool areThousands(const PhoneCandidate& candidate) {
    const auto& groups = candidate.groups;
    return groups.size() > 1 && groups.first() <= 3 && !candidate.hasBrackets &&
           !candidate.digits.startsWith(u'0') &&
           std::all_of(groups.begin() + 1, groups.end(), [](int length) { return length == 3; }) &&
           (candidate.separators.count(u'.') == candidate.separators.size() || groups.first() != 3);
}

/// Whether every gap as written is one of the country's own gaps.
bool hasOwnGaps(const QList<int>& written, const QList<int>& own) {
    QList<int> ownEnds;
    int end = 0;
    for (const int length : own)
        ownEnds.append(end += length);
    end = 0;
    return std::all_of(written.begin(), written.end(),
                       [&](int length) { return ownEnds.contains(end += length); });
}

/// North Americans group their digits in one way; elsewhere people do as they like, but hardly ever
/// with single digits or very many groups.
bool isGroupedPlausibly(const PhoneCandidate& candidate, const PhoneVerdict& verdict) {
    constexpr qsizetype mostGroups = 6;
    if (candidate.groups.size() == 1)
        return true;
    if (verdict.international.startsWith(u"+1"))
        return hasOwnGaps(candidate.groups, verdict.nationalGroups);
    const auto singles = std::count(candidate.groups.begin() + 1, candidate.groups.end(), 1);
    return candidate.groups.size() <= mostGroups && singles <= 1;
}

bool isWrittenLikeNational(const PhoneCandidate& candidate) {
    return !areYears(candidate) && !isDecimal(candidate) && !areThousands(candidate);
}

} // namespace

void PhoneFinder::find(QStringView text, QList<DataMatch>& found) const {
    int judged = 0;
    for (qsizetype position = 0; judged < mostJudged;) {
        const auto candidate = nextPhoneCandidate(text, position);
        if (!candidate)
            return;
        if (isRuledOutByContext(text, *candidate))
            continue;
        QString digits = candidate->digits;
        const bool isInternational = candidate->isInternational() || digits.startsWith(u"00");
        if (!isInternational && !isWrittenLikeNational(*candidate))
            continue;
        if (digits.startsWith(u"00"))
            digits.replace(0, 2, u'+');
        ++judged;
        const PhoneVerdict verdict = judgePhoneNumber(digits, m_region);
        if (verdict.international.isEmpty() ||
            (!isInternational && !isGroupedPlausibly(*candidate, verdict)))
            continue;
        const qsizetype end = endOfExtension(text, candidate->end);
        found.append(
            {DataKind::phone, candidate->start, end - candidate->start, verdict.international});
        position = std::max(position, end);
    }
}

} // namespace quorvel
