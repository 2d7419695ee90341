#include "smart/context/CardGroups.h"

#include <QStringList>

#include <algorithm>
#include <array>

namespace quorvel {

namespace {

struct Grouping {
    QStringView beginning;
    qsizetype digits;
    std::array<int, 3> groups;
};

/// All others print groups of four.
constexpr std::array groupings{
    Grouping{u"34", 15, {4, 6, 5}}, Grouping{u"37", 15, {4, 6, 5}}, // American Express
    Grouping{u"30", 14, {4, 6, 4}}, Grouping{u"36", 14, {4, 6, 4}}, // Diners Club
    Grouping{u"38", 14, {4, 6, 4}}, Grouping{u"39", 14, {4, 6, 4}},
};

} // namespace

QString groupedCard(const QString& digits) {
    const auto grouping =
        std::find_if(groupings.begin(), groupings.end(), [&](const Grouping& candidate) {
            return digits.size() == candidate.digits && digits.startsWith(candidate.beginning);
        });
    constexpr qsizetype usualGroup = 4;
    QStringList parts;
    for (qsizetype at = 0; at < digits.size(); at += parts.last().size())
        parts.append(digits.mid(at, grouping == groupings.end()
                                        ? usualGroup
                                        : grouping->groups[std::size_t(parts.size())]));
    return parts.join(u' ');
}

} // namespace quorvel
