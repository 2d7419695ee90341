#include "platform/text/dates/DateParsers.h"

#include <algorithm>

namespace quorvel {

namespace {

constexpr int firstYear = 1000;
constexpr int lastYear = 2999;

DatePiece pieceOf(int begin, int end, int year, int month, int day) {
    DatePiece piece;
    piece.begin = begin;
    piece.end = end;
    piece.first.year = year;
    piece.first.month = month;
    piece.first.day = day;
    return piece;
}

/// Three numbers with the same mark between them.
struct Triple {
    int numbers[3] = {};
    int digits[3] = {};
    char16_t mark = 0;
    int end = 0;
    bool isSpaced = false;
};

bool separates(const DateLine& line, int index, char16_t mark) {
    return line.isMark(index, mark) && line.isGlued(index) && line.isGlued(index + 1);
}

bool separatesWithSpace(const DateLine& line, int index, char16_t mark) {
    if (!line.isMark(index, mark) || line.isGlued(index + 1))
        return false;
    return mark == u'.' ? line.isGlued(index) : mark == u'/' && !line.isGlued(index);
}

std::optional<Triple> tripleAt(const DateLine& line, int index) {
    Triple triple;
    triple.mark = line.at(index + 1).mark;
    if (!QStringView(u"/.-").contains(QChar(triple.mark)) || triple.mark == 0)
        return std::nullopt;
    triple.isSpaced = separatesWithSpace(line, index + 1, triple.mark);
    for (int i = 0; i < 3; ++i) {
        const int at = index + 2 * i;
        const bool isApart = triple.isSpaced ? separatesWithSpace(line, at - 1, triple.mark)
                                             : separates(line, at - 1, triple.mark);
        if (!line.isDigits(at) || (i > 0 && !isApart))
            return std::nullopt;
        triple.numbers[i] = line.at(at).value;
        triple.digits[i] = line.at(at).digits;
    }
    triple.end = index + 5;
    return triple;
}

std::optional<DatePiece> yearFirst(const DateLine& line, int index, const Triple& triple) {
    const auto [year, month, day] = triple.numbers;
    if (year < firstYear || year > lastYear || triple.digits[1] > 2 || triple.digits[2] > 2)
        return std::nullopt;
    const bool isPadded = triple.digits[1] == 2 && triple.digits[2] == 2;
    // "2024.1.2" is a version, "2024. 1. 2." a date.
    if ((triple.mark == u'.' && !triple.isSpaced && !isPadded) || !isDay(year, month, day))
        return std::nullopt;
    const bool closes = triple.isSpaced && triple.mark == u'.' && line.isMark(triple.end, u'.') &&
                        line.isGlued(triple.end);
    return pieceOf(index, triple.end + (closes ? 1 : 0), year, month, day);
}

/// The lexeme before, over the marks of "Datum: 5.3." and "Di., 5.3.".
int wordBefore(const DateLine& line, int index) {
    int before = index - 1;
    for (int i = 0; i < 2; ++i)
        if (line.isMark(before, u':') || line.isMark(before, u',') || line.isMark(before, u'.'))
            --before;
    return before;
}

bool followsDateWord(const DateLine& line, int index) {
    return line.hasAny(wordBefore(line, index), maskOf(Role::on, Role::weekday));
}

bool precedesTime(const DateLine& line, int index) {
    const bool isJoined = line.isMark(index, u',') || line.has(index, Role::at);
    const int at = isJoined ? index + 1 : index;
    return line.isDigits(at) && line.isMark(at + 1, u':') && line.isGlued(at + 1);
}

/// Versions follow names of programs and signs of comparison.
bool mayFollow(const DateLine& line, int index) {
    const Lexeme& before = line.at(index - 1);
    if (before.kind == Lexeme::Kind::mark)
        return index == 0 || !QStringView(u"=<>~^\"'`").contains(QChar(before.mark));
    return before.capital || before.roles != 0;
}

/// Versions and part numbers look like dates with a short year.
bool isShortYearDate(const DateLine& line, int index, const Triple& triple, DateOrder order) {
    const bool isPadded = triple.digits[0] == 2 && triple.digits[1] == 2;
    if (triple.mark == u'/' || followsDateWord(line, index) || precedesTime(line, triple.end))
        return true;
    const bool isNative = order == DateOrder::dayFirst || isPadded;
    return triple.mark == u'.' && isNative && mayFollow(line, index);
}

std::optional<DatePiece> yearLast(const DateLine& line, int index, const Triple& triple,
                                  DateOrder order) {
    const auto [first, second, written] = triple.numbers;
    const bool isShort = triple.digits[2] == 2;
    if (triple.digits[0] > 2 || triple.digits[1] > 2 || (!isShort && triple.digits[2] != 4))
        return std::nullopt;
    if (isShort && (triple.isSpaced || !isShortYearDate(line, index, triple, order)))
        return std::nullopt;
    const int year = isShort ? fullYear(written) : written;
    if (year < firstYear || year > lastYear)
        return std::nullopt;
    const bool isDayFirst = order == DateOrder::dayFirst;
    const int day = isDayFirst ? first : second;
    const int month = isDayFirst ? second : first;
    if (isDay(year, month, day))
        return pieceOf(index, triple.end, year, month, day);
    if (isDay(year, day, month))
        return pieceOf(index, triple.end, year, day, month);
    return std::nullopt;
}

bool isFraction(int numerator, int denominator) {
    constexpr int usual[] = {2, 3, 4, 5, 8};
    return numerator < denominator &&
           std::find(std::begin(usual), std::end(usual), denominator) != std::end(usual);
}

/// "5.3." with a preposition, "Fri 3/5".
std::optional<DatePiece> withoutYear(const DateLine& line, int index, DateOrder order) {
    const bool isDotted =
        separates(line, index + 1, u'.') && line.isMark(index + 3, u'.') && line.isGlued(index + 3);
    const bool isSlashed = separates(line, index + 1, u'/');
    if (!isDotted && !isSlashed)
        return std::nullopt;
    const int first = line.number(index, 1, 2, 1, 31);
    const int second = line.number(index + 2, 1, 2, 1, 31);
    const bool isDayFirst = isDotted || order == DateOrder::dayFirst;
    const int day = isDayFirst ? first : second;
    const int month = isDayFirst ? second : first;
    const bool isSwapped = !isDay(Moment::unknown, month, day);
    if (isSwapped && (isDotted || !isDay(Moment::unknown, day, month)))
        return std::nullopt;
    const int end = index + (isDotted ? 4 : 3);
    DatePiece piece =
        pieceOf(index, end, Moment::unknown, isSwapped ? day : month, isSwapped ? month : day);
    const bool isPrepared =
        isDotted ? line.hasAny(wordBefore(line, index), maskOf(Role::dottedOn, Role::weekday))
                 : followsDateWord(line, index) && !isFraction(first, second);
    const bool isSupported = isPrepared || (isSlashed && precedesTime(line, end));
    piece.need = isSupported ? DatePiece::Need::nothing : DatePiece::Need::company;
    return piece;
}

/// "1.–5.3." and "1.-5.3.2024": the first day has no month of its own.
std::optional<DatePiece> dayRange(const DateLine& line, int index, DateOrder order) {
    const int day = line.number(index, 1, 2, 1, 31);
    if (day < 0 || !line.isMark(index + 1, u'.') || !line.isGlued(index + 1))
        return std::nullopt;
    const int next = skipRangeSign(line, index + 2);
    if (next == index + 2)
        return std::nullopt;
    auto last = parseNumericDate(line, next, order);
    if (!last || last->isRange || line.at(next + 1).mark != u'.' || day >= last->first.day)
        return std::nullopt;
    DatePiece piece = *last;
    piece.begin = index;
    piece.last = piece.first;
    piece.first.day = day;
    piece.isRange = true;
    piece.takesFrom = isRangeWord(line, index + 2);
    const bool isPrepared =
        line.hasAny(wordBefore(line, index), maskOf(Role::dottedOn, Role::weekday));
    piece.need = isPrepared || piece.first.year != Moment::unknown ? DatePiece::Need::nothing
                                                                   : DatePiece::Need::company;
    return piece;
}

/// "2024-W10", "2024-W10-2", and "2024W102" is left alone.
std::optional<DatePiece> isoWeek(const DateLine& line, int index) {
    const bool hasLetter = separates(line, index + 1, u'-') && line.isGlued(index + 3) &&
                           line.folded(index + 2) == QStringLiteral("w");
    const int year = line.number(index, 4, 4, firstYear, lastYear);
    const int week = line.number(index + 3, 2, 2, 1, 53);
    if (year < 0 || week < 0 || !hasLetter)
        return std::nullopt;
    DatePiece piece = pieceOf(index, index + 4, year, Moment::unknown, Moment::unknown);
    piece.first.week = week;
    const int day = line.number(index + 5, 1, 1, 1, 7);
    if (day > 0 && separates(line, index + 4, u'-')) {
        piece.first.day = day;
        piece.end = index + 6;
    }
    return piece;
}

/// "20240305T140000": without the time it is any number.
std::optional<DatePiece> compact(const DateLine& line, int index) {
    const int number = line.number(index, 8, 8, firstYear * 10000, lastYear * 10000);
    const bool hasTime = line.isGlued(index + 1) && line.isGlued(index + 2) &&
                         line.isWord(index + 1) && line.at(index + 2).digits >= 4 &&
                         line.folded(index + 1) == QStringLiteral("t");
    const int month = number / 100 % 100;
    if (number < 0 || !hasTime || !isDay(number / 10000, month, number % 100))
        return std::nullopt;
    return pieceOf(index, index + 1, number / 10000, month, number % 100);
}

} // namespace

std::optional<DatePiece> parseNumericDate(const DateLine& line, int index, DateOrder order) {
    constexpr int isVersion = 0;
    const bool isDotted = line.isMark(index + 1, u'.') && line.isGlued(index + 2);
    if (!line.isDigits(index) || (isDotted && line.value(index - 1, Role::notDate) == isVersion))
        return std::nullopt;
    if (const auto triple = tripleAt(line, index))
        return triple->digits[0] == 4 ? yearFirst(line, index, *triple)
                                      : yearLast(line, index, *triple, order);
    if (const auto range = dayRange(line, index, order))
        return range;
    if (const auto week = isoWeek(line, index))
        return week;
    if (const auto date = withoutYear(line, index, order))
        return date;
    return compact(line, index);
}

} // namespace quorvel
