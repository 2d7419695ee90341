#include "platform/text/dates/ClockReader.h"

namespace quorvel {

int minutesAt(const DateLine& line, int index) {
    return line.isGlued(index) ? line.number(index, 2, 2, 0, 59) : Moment::unknown;
}

void applyHalf(Moment& moment, int half) {
    constexpr int noon = 12;
    if (moment.hour < noon && half == 1)
        moment.hour += noon;
    else if (moment.hour == noon && half == 0)
        moment.hour = 0;
}

namespace {

void readFraction(const DateLine& line, Clock& clock) {
    const bool isFraction = (line.isMark(clock.end, u'.') || line.isMark(clock.end, u',')) &&
                            line.isGlued(clock.end) && line.isGlued(clock.end + 1) &&
                            line.isDigits(clock.end + 1) && line.at(clock.end + 1).digits <= 9;
    if (!isFraction)
        return;
    int value = line.at(clock.end + 1).value;
    for (int digits = line.at(clock.end + 1).digits; digits != 3; digits += digits > 3 ? -1 : 1)
        value = digits > 3 ? value / 10 : value * 10;
    clock.moment.millisecond = value;
    clock.end += 2;
}

/// "14:30", "14:30:05.123".
bool readColons(const DateLine& line, int index, Clock& clock) {
    const int minute = minutesAt(line, index + 2);
    if (minute < 0 || !line.isMark(index + 1, u':') || !line.isGlued(index + 1))
        return false;
    clock.moment.minute = minute;
    clock.end = index + 3;
    clock.isMarked = true;
    const int second = minutesAt(line, index + 4);
    if (second >= 0 && line.isMark(index + 3, u':') && line.isGlued(index + 3)) {
        clock.moment.second = second;
        clock.end = index + 5;
        readFraction(line, clock);
    }
    return true;
}

/// The end of "am", "pm", "a.m.", "p. m."; `index` when there is none. `half` becomes 0 or 1.
int halfDayEnd(const DateLine& line, int index, int& half) {
    half = line.value(index, Role::halfDay);
    if (half >= 0) {
        // German writes "um 10 am Bahnhof".
        const bool isPlace =
            half == 0 && !line.isGlued(index) && !line.at(index).capital &&
            line.isWord(index + 1) && line.at(index + 1).capital &&
            line.written(index + 1).size() > 1 &&
            !line.hasAny(index - 2, maskOf(Role::at, Role::on, Role::weekday)) &&
            !line.hasAny(index + 1, maskOf(Role::weekday, Role::month, Role::zone));
        return isPlace ? index : index + 1;
    }
    const QString letter = line.isWord(index) && line.isMark(index + 1, u'.') &&
                                   line.isGlued(index + 1) && line.isWord(index + 2)
                               ? line.folded(index)
                               : QString();
    if ((letter != u"a" && letter != u"p") || line.folded(index + 2) != u"m")
        return index;
    half = letter == u"p" ? 1 : 0;
    return line.isMark(index + 3, u'.') && line.isGlued(index + 3) ? index + 4 : index + 3;
}

/// "14h30", "14 Uhr 30", "8 heures".
bool readClockWord(const DateLine& line, int index, Clock& clock) {
    const int word = line.value(index, Role::clock);
    const bool isLetter = word >= 0 && line.written(index).size() == 1;
    if (word < 0)
        return false;
    clock.end = index + 1;
    clock.isMarked = true;
    const int minute = line.number(index + 1, 2, 2, 0, 59);
    const bool hasMinutes = minute >= 0 && clock.moment.minute == Moment::unknown &&
                            (line.isGlued(index + 1) || !line.isGlued(index)) &&
                            !line.hasAny(index + 2, maskOf(Role::shortUnit, Role::period));
    if (hasMinutes) {
        clock.moment.minute = minute;
        clock.end = index + 2;
    }
    // "1h30" is mostly a duration.
    constexpr int firstLikelyHour = 6;
    const bool isClear = word == 1 || clock.moment.minute >= 0;
    const bool isShort = isLetter && hasMinutes && clock.moment.hour < firstLikelyHour;
    if (!isClear || isShort)
        clock.need = DatePiece::Need::preposition;
    return true;
}

/// "in the morning", "de la tarde", "утра", "abends".
void readDayPart(const DateLine& line, Clock& clock) {
    int at = clock.end;
    for (int i = 0; i < 2 && line.has(at, Role::dayPartLead) && line.isWord(at); ++i)
        ++at;
    const int half = line.value(at, Role::dayPart);
    const bool isLed = at > clock.end;
    if (half < 0 || (!isLed && !clock.isMarked && clock.need == DatePiece::Need::nothing))
        return;
    applyHalf(clock.moment, half);
    clock.end = at + 1;
    clock.isHalf = true;
    clock.need = isLed || clock.isMarked ? DatePiece::Need::nothing : DatePiece::Need::preposition;
}

std::optional<Clock> easternAt(const DateLine& line, int index) {
    const int half = line.value(index, Role::eastHalfDay);
    const int at = half >= 0 ? index + 1 : index;
    Clock clock;
    clock.moment.hour = line.number(at, 1, 2, 0, 24);
    if (clock.moment.hour < 0)
        return std::nullopt;
    if (half >= 0 && readColons(line, at, clock)) {
        applyHalf(clock.moment, half);
        return clock;
    }
    const int sign = line.value(at + 1, Role::eastHour);
    if (sign < 0)
        return std::nullopt;
    clock.end = at + 2;
    const int minute = line.number(at + 2, 1, 2, 0, 59);
    if (minute >= 0 && line.has(at + 3, Role::eastMinute)) {
        clock.moment.minute = minute;
        clock.end = at + 4;
        const int second = line.number(at + 4, 1, 2, 0, 59);
        if (second >= 0 && line.has(at + 5, Role::eastSecond)) {
            clock.moment.second = second;
            clock.end = at + 6;
        }
    } else if (line.has(at + 2, Role::eastHalf)) {
        clock.moment.minute = 30;
        clock.end = at + 3;
    }
    if (half >= 0)
        applyHalf(clock.moment, half);
    // "3点" is also a score.
    const bool isScore = sign == 1 && half < 0 && clock.moment.minute < 0;
    clock.need = isScore ? DatePiece::Need::date : DatePiece::Need::nothing;
    return clock;
}

bool readDotted(const DateLine& line, int index, Clock& clock) {
    const int minute = minutesAt(line, index + 2);
    if (minute < 0 || !line.isMark(index + 1, u'.') || !line.isGlued(index + 1))
        return false;
    int half = 0;
    const bool isClock = line.has(index + 3, Role::clock) ||
                         halfDayEnd(line, index + 3, half) != index + 3 ||
                         line.has(index - 1, Role::hourLead) ||
                         (line.isMark(index - 1, u'.') && line.has(index - 2, Role::hourLead));
    if (!isClock)
        return false;
    clock.moment.minute = minute;
    clock.end = index + 3;
    clock.isMarked = true;
    const bool isWeak = !line.hasAny(index + 3, maskOf(Role::clock, Role::halfDay)) &&
                        (line.folded(index - 1) == u"um" || line.folded(index - 1) == u"в");
    clock.need = isWeak ? DatePiece::Need::date : DatePiece::Need::nothing;
    return true;
}

/// "noon", "12 midnight".
std::optional<Clock> noonAt(const DateLine& line, int index) {
    const bool isCounted = line.number(index, 2, 2, 12, 12) > 0;
    const int at = isCounted ? index + 1 : index;
    if (!line.has(at, Role::noon))
        return std::nullopt;
    Clock noon;
    noon.moment.hour = line.value(at, Role::noon);
    noon.end = at + 1;
    noon.need = isCounted ? DatePiece::Need::nothing : DatePiece::Need::preposition;
    noon.isMarked = true;
    return noon;
}

/// The words behind "5", "5:30" or "5.30" that make it a time.
void readClockWords(const DateLine& line, bool hasMinutes, Clock& clock) {
    if (!line.has(clock.end, Role::clock))
        return;
    if (hasMinutes) {
        ++clock.end;
        return;
    }
    clock.need = DatePiece::Need::nothing;
    readClockWord(line, clock.end, clock);
}

} // namespace

std::optional<Clock> clockAt(const DateLine& line, int index) {
    if (const auto noon = noonAt(line, index))
        return noon;
    if (const auto eastern = easternAt(line, index))
        return eastern;
    Clock clock;
    clock.moment.hour = line.number(index, 1, 2, 0, 24);
    if (clock.moment.hour < 0)
        return std::nullopt;
    clock.end = index + 1;
    const bool hasMinutes = readColons(line, index, clock) || readDotted(line, index, clock);
    if (!hasMinutes)
        clock.need = DatePiece::Need::date;
    readClockWords(line, hasMinutes, clock);
    int half = 0;
    const int halfEnd = halfDayEnd(line, clock.end, half);
    if (halfEnd == clock.end || clock.moment.hour > 23) {
        readDayPart(line, clock);
        return clock;
    }
    if (!hasMinutes && (clock.moment.hour < 1 || clock.moment.hour > 12))
        return std::nullopt;
    applyHalf(clock.moment, half);
    clock.end = halfEnd;
    clock.need = DatePiece::Need::nothing;
    clock.isHalf = clock.isMarked = true;
    return clock;
}

} // namespace quorvel
