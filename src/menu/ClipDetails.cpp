#include "menu/ClipDetails.h"

#include "foundation/Text.h"

#include <QLocale>

#include <array>

namespace quorvel {

namespace {

struct AgeUnit {
    double below; ///< Seconds from which the next unit is used.
    double seconds;
    const char* key;
};

constexpr double minute = 60;
constexpr double hour = 60 * minute;
constexpr double day = 24 * hour;

constexpr std::array ageUnits{
    AgeUnit{hour, minute, "menu.age.minutes.format"},
    AgeUnit{day, hour, "menu.age.hours.format"},
    AgeUnit{7 * day, day, "menu.age.days.format"},
};

/// A clock that was set back makes clips of the future: they are as good as new.
QString age(const Date& copiedAt, const MenuContent& content) {
    const double seconds =
        content.clock.now().secondsSinceReference - copiedAt.secondsSinceReference;
    if (seconds < minute)
        return content.text("menu.age.now");
    for (const AgeUnit& unit : ageUnits)
        if (seconds < unit.below)
            return content.strings.format(QString::fromLatin1(unit.key),
                                          QString::number(int(seconds / unit.seconds)));
    return QLocale().toString(copiedAt.toDateTime().toLocalTime().date(), QLocale::ShortFormat);
}

} // namespace

QString clipDetail(const RecentClipboardEntry& entry, const MenuContent& content) {
    const QString when = age(entry.copiedAt, content);
    const QString from = singleLine(entry.sourceAppName.value_or(QString()));
    return from.isEmpty() ? when : from + QStringLiteral(" · ") + when;
}

bool isPinnedNow(const RecentClipboardEntry& entry, const Clock& clock) {
    return entry.pinned && (!entry.pinnedUntil || *entry.pinnedUntil > clock.now());
}

} // namespace quorvel
