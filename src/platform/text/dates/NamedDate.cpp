#include "platform/text/dates/DateParsers.h"

namespace quorvel {

namespace {

struct Day {
    int day = 0;
    int end = 0;
    bool isOrdinal = false;
};

/// "5", "5th", "1er", "5-го", "5."; the dot only when `end` is not the end of a sentence.
std::optional<Day> dayAt(const DateLine& line, int index) {
    const int number = line.number(index, 1, 2, 1, 31);
    if (number < 0) {
        const int ordinal = line.value(index, Role::ordinal);
        return ordinal < 0 ? std::nullopt : std::optional(Day{ordinal, index + 1, true});
    }
    if (line.isGlued(index + 1) && line.has(index + 1, Role::ordinalSuffix))
        return Day{number, index + 2, true};
    const bool isHyphened = line.isMark(index + 1, u'-') && line.isGlued(index + 1) &&
                            line.isGlued(index + 2) && line.has(index + 2, Role::ordinalSuffix) &&
                            !line.has(index + 2, Role::of);
    if (isHyphened)
        return Day{number, index + 3, true};
    if (line.isMark(index + 1, u'.') && line.isGlued(index + 1))
        return Day{number, index + 2, true};
    return Day{number, index + 1, false};
}

/// Whether what stands between two parts of a date is one of these marks, glued on both sides.
bool isJoint(const DateLine& line, int index) {
    return line.isGlued(index) && line.isGlued(index + 1) &&
           (line.isMark(index, u'-') || line.isMark(index, u'/') || line.isMark(index, u'.'));
}

struct Year {
    int year = Moment::unknown;
    int end = 0;
};

bool endsNumber(const DateLine& line, int end) {
    const bool isTime = line.isMark(end, u':') && line.isGlued(end) && line.isDigits(end + 1) &&
                        line.at(end + 1).digits == 2 && line.isGlued(end + 1);
    return line.endsCleanly(end) || isTime || line.at(end).eastern;
}

/// "г.", "года", "r." behind a year belong to it.
int skipYearMark(const DateLine& line, int end) {
    if (!line.has(end, Role::yearMark))
        return end;
    const bool isDotted = line.isMark(end + 1, u'.') && line.isGlued(end + 1);
    const bool isShort = line.written(end).size() == 1;
    return isShort && !isDotted ? end : end + (isShort ? 2 : 1);
}

enum class ShortYear { refused, allowed };

Year yearAt(const DateLine& line, int index, ShortYear shortYear) {
    constexpr int firstYear = 1000;
    constexpr int lastYear = 2999;
    const int year = line.number(index, 4, 4, firstYear, lastYear);
    const bool isClock =
        line.isMark(index + 1, u':') && line.isGlued(index + 2) && line.at(index + 2).digits > 2;
    if (year > 0 && !isClock && endsNumber(line, index + 1))
        return {year, skipYearMark(line, index + 1)};
    const bool isCut = line.isMark(index, u'\'') || line.isMark(index, u'’');
    const int at = isCut ? index + 1 : index;
    const int cut = line.number(at, 2, 2, 0, 99);
    const bool fits = cut >= 0 && (isCut ? line.isGlued(at) : shortYear == ShortYear::allowed);
    return fits && line.endsCleanly(at + 1) ? Year{fullYear(cut), at + 1} : Year{};
}

/// The year behind a month or a day: ", 2024", " de 2024", ". 2024", "-24".
Year yearAfter(const DateLine& line, int end, bool isAbbreviated) {
    if (isJoint(line, end))
        return yearAt(line, end + 1, ShortYear::allowed);
    int at = end;
    if (line.isMark(at, u'.') && line.isGlued(at))
        ++at;
    if (line.isMark(at, u','))
        ++at;
    if (line.has(at, Role::of) && line.isWord(at))
        return yearAt(line, at + 1, ShortYear::allowed);
    const bool isLast = at + 1 >= line.size() || !line.isGlued(at + 1) ? at + 1 >= line.size()
                                                                       : line.endsCleanly(at + 1);
    const bool mayBeShort = isAbbreviated && at == end && isLast;
    return yearAt(line, at, mayBeShort ? ShortYear::allowed : ShortYear::refused);
}

/// Whether the month may be one here, by how ordinary a word it is.
bool isMonth(const DateLine& line, int month, int begin, bool hasYear, bool isOrdinal) {
    switch (line.row(month, Role::month)->strength) {
    case Strength::plain:
        return true;
    case Strength::ambiguous:
        return hasYear || isOrdinal || line.at(month).capital ||
               line.hasAny(begin - 1, maskOf(Role::on, Role::weekday));
    case Strength::weak:
        return hasYear;
    }
    return false;
}

bool isShort(const DateLine& line, int month) {
    constexpr int longestAbbreviation = 4;
    return line.written(month).size() <= longestAbbreviation;
}

std::optional<DatePiece> pieceOf(const DateLine& line, int begin, int end, int month,
                                 const Year& year) {
    DatePiece piece;
    piece.begin = begin;
    piece.end = year.year == Moment::unknown ? end : year.end;
    piece.first.month = line.value(month, Role::month);
    piece.first.year = year.year;
    return piece;
}

bool setDays(DatePiece& piece, int day, int lastDay) {
    piece.first.day = day;
    if (!isDay(piece.first.year, piece.first.month, day))
        return false;
    if (lastDay == 0)
        return true;
    piece.isRange = true;
    piece.last = piece.first;
    piece.last.day = lastDay;
    return lastDay > day && isDay(piece.first.year, piece.first.month, lastDay);
}

/// Where the month stands behind a day, or -1.
int monthAfterDay(const DateLine& line, const Day& day) {
    int at = day.end;
    const bool isOf = line.has(at, Role::of) && !line.has(at, Role::month);
    if (isJoint(line, at) || isOf)
        ++at;
    if (line.has(at, Role::article) && line.at(at).end - line.at(at).start == 1)
        ++at;
    return line.has(at, Role::month) ? at : -1;
}

int beginWithArticle(const DateLine& line, int index, bool isOrdinal) {
    if (!line.isWord(index - 1) || !line.has(index - 1, Role::article))
        return index;
    const QString article = line.folded(index - 1);
    const bool belongs = article == u"le" || (article == u"the" && isOrdinal);
    return belongs ? index - 1 : index;
}

std::optional<DatePiece> dayFirst(const DateLine& line, int index) {
    const auto day = dayAt(line, index);
    if (!day)
        return std::nullopt;
    Day last;
    Day before = *day;
    int sign = skipRangeSign(line, day->end);
    if (sign == day->end && line.isMark(sign, u'/') && line.isGlued(sign))
        ++sign;
    if (sign != day->end) {
        if (const auto other = dayAt(line, sign); other && line.isDigits(sign))
            before = last = *other;
    }
    const int month = monthAfterDay(line, before);
    if (month < 0)
        return std::nullopt;
    const Year year = yearAfter(line, month + 1, isShort(line, month));
    const bool hasYear = year.year != Moment::unknown;
    const bool isGluedOn = line.isGlued(month) && line.isDigits(month - 1);
    const bool isWordDay = line.isWord(index);
    if (!isMonth(line, month, index, hasYear, day->isOrdinal) || (isGluedOn && !hasYear) ||
        (isWordDay && !line.has(day->end, Role::of) && !line.has(day->end, Role::month)))
        return std::nullopt;
    auto piece =
        pieceOf(line, beginWithArticle(line, index, day->isOrdinal), month + 1, month, year);
    piece->takesFrom = last.day != 0 && isRangeWord(line, day->end);
    return setDays(*piece, day->day, last.day) ? piece : std::nullopt;
}

std::optional<DatePiece> monthAndYear(const DateLine& line, int index) {
    const Year year = yearAfter(line, index + 1, false);
    const bool isNumber = year.year == Moment::unknown;
    if (isNumber || line.row(index, Role::month)->strength == Strength::weak)
        return std::nullopt;
    return pieceOf(line, index, index + 1, index, year);
}

std::optional<DatePiece> monthFirst(const DateLine& line, int index) {
    int at = index + 1;
    if (isJoint(line, at) || (line.isMark(at, u'.') && line.isGlued(at)))
        ++at;
    if (line.has(at, Role::article) && line.isWord(at))
        ++at;
    const auto day = line.isDigits(at) ? dayAt(line, at) : std::nullopt;
    if (!day ||
        line.isGlued(index + 1) != (line.isMark(index + 1, u'.') || isJoint(line, index + 1)))
        return std::nullopt;
    // A dot behind the day ends a sentence here.
    Day first = *day;
    if (line.isMark(first.end - 1, u'.'))
        first = {first.day, first.end - 1, false};
    Day last;
    const int sign = skipRangeSign(line, first.end);
    if (sign != first.end && line.isDigits(sign)) {
        const auto other = dayAt(line, sign);
        const bool isPlain = other && !line.has(other->end, Role::month) &&
                             !line.isMark(other->end, u':') && monthAfterDay(line, *other) < 0;
        if (isPlain)
            last = *other;
        if (last.day != 0 && line.isMark(last.end - 1, u'.'))
            --last.end;
    }
    const int end = last.day != 0 ? last.end : first.end;
    if (line.isMark(end, u':') && line.isGlued(end) && line.isGlued(end + 1) &&
        line.isDigits(end + 1))
        return std::nullopt;
    const Year year = yearAfter(line, end, false);
    if (!isMonth(line, index, index, year.year != Moment::unknown, first.isOrdinal))
        return std::nullopt;
    auto piece = pieceOf(line, index, end, index, year);
    return setDays(*piece, first.day, last.day) ? piece : std::nullopt;
}

} // namespace

std::optional<DatePiece> parseNamedDate(const DateLine& line, int index) {
    if (line.has(index, Role::month)) {
        if (const auto date = monthFirst(line, index))
            return date;
        return monthAndYear(line, index);
    }
    if (line.has(index, Role::article) && line.isWord(index)) {
        const auto date = dayFirst(line, index + 1);
        return date && date->begin == index ? date : std::nullopt;
    }
    const auto date = dayFirst(line, index);
    if (date && date->begin != index) {
        DatePiece whole = *date;
        whole.begin = index;
        return whole;
    }
    return date;
}

} // namespace quorvel
