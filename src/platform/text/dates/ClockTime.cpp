#include "platform/text/dates/DateParsers.h"

namespace quorvel {

namespace {

/// A time being read: what is known and where it ends.
struct Clock {
    Moment moment;
    int end = 0;
    DatePiece::Need need = DatePiece::Need::nothing;

    /// Whether "pm" or its like was read, so that a number before a range sign is an hour too.
    bool isHalf = false;
    bool isMarked = false;
};

int minutesAt(const DateLine& line, int index) {
    return line.isGlued(index) ? line.number(index, 2, 2, 0, 59) : Moment::unknown;
}

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

bool applyHalf(Moment& moment, int half) {
    constexpr int noon = 12;
    if (moment.hour < noon && half == 1)
        moment.hour += noon;
    else if (moment.hour == noon && half == 0)
        moment.hour = 0;
    return true;
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
                        line.folded(index - 1) == u"um";
    clock.need = isWeak ? DatePiece::Need::date : DatePiece::Need::nothing;
    return true;
}

std::optional<Clock> clockAt(const DateLine& line, int index) {
    if (line.has(index, Role::noon)) {
        Clock noon;
        noon.moment.hour = line.value(index, Role::noon);
        noon.end = index + 1;
        noon.need = DatePiece::Need::preposition;
        noon.isMarked = true;
        return noon;
    }
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
    if (hasMinutes && line.has(clock.end, Role::clock))
        ++clock.end;
    else if (!hasMinutes && line.has(clock.end, Role::clock)) {
        clock.need = DatePiece::Need::nothing;
        readClockWord(line, clock.end, clock);
    }
    int half = 0;
    const int halfEnd = halfDayEnd(line, clock.end, half);
    if (halfEnd != clock.end && clock.moment.hour <= 23) {
        if (!hasMinutes && (clock.moment.hour < 1 || clock.moment.hour > 12))
            return std::nullopt;
        applyHalf(clock.moment, half);
        clock.end = halfEnd;
        clock.need = DatePiece::Need::nothing;
        clock.isHalf = clock.isMarked = true;
    } else {
        readDayPart(line, clock);
    }
    return clock;
}

int offsetAt(const DateLine& line, int index, int& end) {
    const bool isMinus = line.isMark(index, u'-') || line.isMark(index, u'–');
    if ((!isMinus && !line.isMark(index, u'+')) || !line.isGlued(index + 1))
        return Moment::noOffset;
    int hours = line.number(index + 1, 1, 2, 0, 14);
    int minutes = 0;
    end = index + 2;
    const int compact = line.number(index + 1, 4, 4, 0, 1459);
    if (compact >= 0) {
        hours = compact / 100;
        minutes = compact % 100;
    } else if (hours >= 0 && line.isMark(index + 2, u':') && minutesAt(line, index + 3) >= 0) {
        minutes = minutesAt(line, index + 3);
        end = index + 4;
    }
    const bool isNumber = hours < 0 || (line.isMark(end, u':') && line.isGlued(end + 1));
    if (isNumber)
        return Moment::noOffset;
    return (isMinus ? -1 : 1) * (hours * 60 + minutes);
}

/// "+02:00", " +0100"; a hyphen after hours and minutes alone is a range.
int readOffset(const DateLine& line, int index, Moment& moment) {
    int end = index;
    const int offset = offsetAt(line, index, end);
    const bool isLong = end == index + 4 || line.at(index + 1).digits == 4;
    const bool isMinus = !line.isMark(index, u'+');
    const bool isClear = line.isGlued(index)
                             ? !isMinus || moment.second >= 0 || line.at(index + 1).digits == 4
                             : isLong && !isMinus;
    const bool isSpacedMinus = !line.isGlued(index) && line.at(index + 1).digits == 4;
    if (offset == Moment::noOffset || (!isClear && !isSpacedMinus))
        return index;
    moment.offset = offset;
    return end;
}

/// The hour before a range sign: "10–11 am", "9 to 5 pm", "9–17 Uhr".
std::optional<DatePiece> hourRange(const DateLine& line, int index) {
    const int hour = line.number(index, 1, 2, 0, 24);
    const int next = skipRangeSign(line, index + 1);
    if (hour < 0 || next == index + 1 || !line.isDigits(next))
        return std::nullopt;
    const auto clock = clockAt(line, next);
    const bool isClear = clock && clock->isMarked && clock->need == DatePiece::Need::nothing &&
                         (clock->isHalf || line.hasAny(clock->end - 1, maskOf(Role::clock)));
    if (!isClear)
        return std::nullopt;
    DatePiece piece;
    piece.kind = DatePiece::Kind::time;
    piece.begin = index;
    piece.last = clock->moment;
    piece.end = parseZone(line, clock->end, piece.last);
    piece.first.hour = hour;
    piece.first.offset = piece.last.offset;
    constexpr int noon = 12;
    if (clock->isHalf && hour < noon && hour + noon < piece.last.hour)
        piece.first.hour += noon;
    piece.isRange = true;
    piece.takesFrom = isRangeWord(line, index + 1);
    return piece;
}

} // namespace

int skipRangeSign(const DateLine& line, int index) {
    const Lexeme& lexeme = line.at(index);
    if (lexeme.kind == Lexeme::Kind::mark && lexeme.mark != 0)
        return QStringView(u"-–—~").contains(QChar(lexeme.mark)) ? index + 1 : index;
    return isRangeWord(line, index) ? index + 1 : index;
}

bool isRangeWord(const DateLine& line, int index) {
    return line.isWord(index) && line.has(index, Role::to);
}

int parseZone(const DateLine& line, int index, Moment& moment) {
    const int offsetEnd = readOffset(line, index, moment);
    if (offsetEnd != index) {
        const bool isNamed = line.isMark(offsetEnd, u'(') && line.has(offsetEnd + 1, Role::zone) &&
                             line.isUpper(offsetEnd + 1) && line.isMark(offsetEnd + 2, u')');
        return isNamed ? offsetEnd + 3 : offsetEnd;
    }
    const bool isInParens = line.isMark(index, u'(');
    const int at = isInParens ? index + 1 : index;
    const int zone = line.value(at, Role::zone);
    const bool isWritten =
        zone >= 0 && line.isUpper(at) && (line.written(at).size() > 1 || line.isGlued(at));
    if (!isWritten)
        return index;
    int end = at + 1;
    if (zone == 0 || line.written(at).size() == 1) {
        moment.offset = 0;
        int past = end;
        const int offset =
            zone == 0 && line.isGlued(end) ? offsetAt(line, end, past) : Moment::noOffset;
        if (offset != Moment::noOffset) {
            moment.offset = offset;
            end = past;
        }
    }
    if (!isInParens)
        return end;
    return line.isMark(end, u')') ? end + 1 : index;
}

std::optional<DatePiece> parseTime(const DateLine& line, int index) {
    int half = -1;
    const bool hasHalfBefore =
        line.has(index, Role::halfDay) && line.isUpper(index) && line.isDigits(index + 1);
    if (hasHalfBefore)
        half = line.value(index, Role::halfDay);
    else if (line.has(index - 1, Role::notDate))
        return std::nullopt;
    if (const auto range = hourRange(line, index))
        return range;
    auto clock = clockAt(line, hasHalfBefore ? index + 1 : index);
    if (!clock || (hasHalfBefore && !clock->isMarked))
        return std::nullopt;
    if (hasHalfBefore)
        applyHalf(clock->moment, half);
    DatePiece piece;
    piece.kind = DatePiece::Kind::time;
    piece.begin = index;
    piece.end = clock->isMarked ? parseZone(line, clock->end, clock->moment) : clock->end;
    piece.first = clock->moment;
    piece.need = clock->need;
    // "1:20 scale"
    if (!clock->isHalf && line.value(piece.end, Role::notDate) == 1)
        return std::nullopt;
    return piece;
}

} // namespace quorvel
