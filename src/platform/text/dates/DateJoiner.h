#pragma once

#include "platform/text/dates/DateParsers.h"

namespace quorvel {

/// Joins dates, weekdays, relative days and times that stand together into one.
class DateJoiner {
public:
    DateJoiner(const DateLine& line, DateOrder order)
        : m_line(line)
        , m_order(order) {}

    /// The whole date that begins here, if one does.
    struct Joined {
        int begin = 0;
        int end = 0;
        QString value;
    };
    std::optional<Joined> at(int index) const;

private:
    struct Whole {
        int begin = 0;
        int end = 0;
        bool hasDate = false;
        bool hasWeekday = false;
        bool isRelative = false;
        bool hasTime = false;
        bool isRange = false;
        bool takesFrom = false;
        bool isCertain = false;
        Moment first;
        Moment last;
    };

    bool mayBegin(int index) const;
    std::optional<DatePiece> day(int index) const;
    std::optional<DatePiece> piece(int index, const Whole* before) const;
    std::optional<DatePiece> pieceOrRange(int index, const Whole* before) const;
    void extendRange(DatePiece& piece, const Whole* before) const;
    std::optional<DatePiece> following(const Whole& whole) const;
    std::optional<DatePiece> isoTime(const Whole& whole) const;
    int skipJoint(const Whole& whole, bool& isAt) const;
    bool isAllowed(const DatePiece& piece, const Whole& whole) const;
    void take(const DatePiece& piece, Whole& whole) const;
    bool endsCleanly(const Whole& whole) const;
    void takeLateYear(Whole& whole) const;
    std::optional<Whole> chain(int index) const;
    void extendToRange(Whole& whole) const;
    bool beginsDate(int index) const;
    bool isNoChance(const Whole& whole) const;
    bool isPrepared(int index) const;
    QString valueOf(const Whole& whole) const;

    const DateLine& m_line;
    DateOrder m_order;
};

} // namespace quorvel
