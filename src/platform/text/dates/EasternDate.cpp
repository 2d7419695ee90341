#include "platform/text/dates/DateParsers.h"

namespace quorvel {

namespace {

/// Reads a number and its sign ("3月"); returns the number, or -1, and moves on.
int readPart(const DateLine& line, int& at, Role sign, int most) {
    const int number = line.number(at, 1, 4, 1, most);
    if (number < 0 || !line.has(at + 1, sign))
        return Moment::unknown;
    at += 2;
    return number;
}

int readYear(const DateLine& line, int& at) {
    const int base = line.value(at, Role::era);
    int next = base >= 0 ? at + 1 : at;
    // The first year of an era is not numbered.
    if (base >= 0 && line.has(next, Role::eastFirst) && line.has(next + 1, Role::eastYear)) {
        at = next + 2;
        return base + 1;
    }
    const bool isTwoDigits = line.at(next).digits == 2;
    const int number = readPart(line, next, Role::eastYear, 2999);
    if (number < 0)
        return Moment::unknown;
    at = next;
    if (base >= 0)
        return base + number;
    return isTwoDigits ? fullYear(number % 100) : number;
}

} // namespace

std::optional<DatePiece> parseEasternDate(const DateLine& line, int index) {
    DatePiece piece;
    piece.begin = index;
    int at = index;
    Moment& date = piece.first;
    date.year = readYear(line, at);
    date.month = readPart(line, at, Role::eastMonth, 12);
    if (date.month < 0)
        return std::nullopt;
    date.day = readPart(line, at, Role::eastDay, 31);
    const bool isWhole = date.day > 0 ? isDay(date.year, date.month, date.day) : date.year > 0;
    if (!isWhole)
        return std::nullopt;
    piece.end = at;
    int next = skipRangeSign(line, at);
    const int last = next == at ? Moment::unknown : readPart(line, next, Role::eastDay, 31);
    if (date.day > 0 && last > date.day) {
        piece.isRange = true;
        piece.last = date;
        piece.last.day = last;
        piece.end = next;
    }
    return piece;
}

} // namespace quorvel
