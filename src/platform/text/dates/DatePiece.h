#pragma once

#include <QString>

namespace quorvel {

/// A day, a time or both, as far as known; what is not known is `unknown`.
struct Moment {
    static constexpr int unknown = -1;
    static constexpr int noOffset = 100000;

    int year = unknown;
    int month = unknown;
    int day = unknown;
    int week = unknown;
    int hour = unknown;
    int minute = unknown;
    int second = unknown;
    int millisecond = unknown;

    /// Minutes east of Greenwich.
    int offset = noOffset;

    bool hasDate() const { return year != unknown && (month != unknown || week != unknown); }
    bool hasTime() const { return hour != unknown; }

    void takeDate(const Moment& from);
    void takeTime(const Moment& from);

    /// ISO 8601; empty when there is nothing known.
    QString toIso() const;
};

/// The year a number of two digits stands for.
int fullYear(int twoDigits);

/// Whether the month has that day (in that year, when it is known).
bool isDay(int year, int month, int day);

/// A part of a line that was understood: lexemes from `begin` to before `end`.
struct DatePiece {
    enum class Kind : quint8 { date, relative, weekday, time };

    /// What else must be there for it to be a date.
    enum class Need : quint8 { nothing, preposition, date, company };

    Kind kind = Kind::date;
    Need need = Need::nothing;
    int begin = 0;
    int end = 0;
    Moment first;

    /// Of a range the other end.
    Moment last;
    bool isRange = false;

    /// Of a range: the word between asks for "from" before it.
    bool takesFrom = false;
};

} // namespace quorvel
