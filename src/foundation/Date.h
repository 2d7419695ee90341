#pragma once

#include <QDateTime>

#include <chrono>
#include <compare>

namespace quorvel {

/// A moment as seconds since 2001-01-01 00:00:00 UTC, the form in which the data files keep it.
struct Date {
    double secondsSinceReference = 0;

    static constexpr double referenceUnixSeconds = 978307200;

    static constexpr Date distantPast() { return Date{-63114076800.0}; }
    static constexpr Date fromUnixSeconds(double seconds) {
        return Date{seconds - referenceUnixSeconds};
    }

    constexpr double unixSeconds() const { return secondsSinceReference + referenceUnixSeconds; }
    QDateTime toDateTime() const {
        return QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(unixSeconds() * 1000), Qt::UTC);
    }

    auto operator<=>(const Date&) const = default;
};

constexpr Date operator+(Date date, std::chrono::duration<double> span) {
    return Date{date.secondsSinceReference + span.count()};
}

} // namespace quorvel
