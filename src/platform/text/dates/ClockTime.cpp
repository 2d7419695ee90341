#include "platform/text/dates/ClockReader.h"

namespace quorvel {

namespace {

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

/// "half past seven", "quarter to 5", "halb acht".
std::optional<DatePiece> spokenTime(const DateLine& line, int index) {
    const WordRow* part = line.row(index, Role::hourPart);
    if (!part)
        return std::nullopt;
    const bool isBeforeHour = part->value < 0 || line.has(index + 1, Role::before);
    const int at = part->value < 0 ? index + 1 : index + 2;
    const bool isJoined = at == index + 1 || isBeforeHour || line.has(index + 1, Role::past);
    const int hour = line.value(at, Role::number);
    if (!isJoined || hour < 1 || hour > 12 || line.folded(at) == u"a")
        return std::nullopt;
    DatePiece piece;
    piece.kind = DatePiece::Kind::time;
    piece.begin = index;
    piece.end = at + 1;
    piece.first.hour = isBeforeHour ? (hour + 11) % 12 : hour;
    piece.first.minute = isBeforeHour ? 60 - std::abs(part->value) : part->value;
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

std::optional<DatePiece> parseTime(const DateLine& line, int index) {
    int half = -1;
    const bool hasHalfBefore =
        line.has(index, Role::halfDay) && line.isUpper(index) && line.isDigits(index + 1);
    if (hasHalfBefore)
        half = line.value(index, Role::halfDay);
    else if (line.has(index - 1, Role::notDate))
        return std::nullopt;
    if (const auto spoken = spokenTime(line, index))
        return spoken;
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
