#include "platform/text/dates/DateJoiner.h"

namespace quorvel {

namespace {

using Kind = DatePiece::Kind;
using Need = DatePiece::Need;

bool isLonger(const std::optional<DatePiece>& piece, const std::optional<DatePiece>& than) {
    return piece && (!than || piece->end > than->end);
}

} // namespace

/// Most words cannot begin a date, and some only before certain others: a look that saves the rest.
bool DateJoiner::mayBegin(int index) const {
    constexpr RoleMask leading = maskOf(
        Role::article, Role::inLead, Role::through, Role::agoLead, Role::number, Role::ordinal,
        Role::phraseStart, Role::shortUnit, Role::period, Role::which, Role::edge, Role::hourPart);
    constexpr RoleMask alone = maskOf(Role::month, Role::weekday, Role::dayName, Role::noon,
                                      Role::eastWeek, Role::era, Role::eastHalfDay, Role::halfDay);
    constexpr RoleMask followers =
        leading | alone |
        maskOf(Role::ago, Role::whichAfter, Role::of, Role::phraseWord, Role::dayPart,
               Role::ordinalSuffix, Role::past, Role::before);
    const RoleMask roles = m_line.at(index).roles;
    if (m_line.isDigits(index) || (roles & alone) != 0)
        return true;
    const bool isHyphened = m_line.isMark(index + 1, u'-') && m_line.isGlued(index + 1);
    return (roles & leading) != 0 && (isHyphened || m_line.hasAny(index + 1, followers));
}

/// The longest day that begins here.
std::optional<DatePiece> DateJoiner::day(int index) const {
    std::optional<DatePiece> best = parseNumericDate(m_line, index, m_order);
    if (const auto date = parseNamedDate(m_line, index); isLonger(date, best))
        best = date;
    if (const auto date = parseEasternDate(m_line, index); isLonger(date, best))
        best = date;
    const auto relative = parseRelativeDate(m_line, index);
    if (isLonger(relative, best))
        best = relative;
    if (const auto weekday = parseWeekday(m_line, index); isLonger(weekday, best))
        best = weekday;
    return best;
}

/// What begins here and is not held yet.
std::optional<DatePiece> DateJoiner::piece(int index, const Whole* before) const {
    const auto date = day(index);
    const bool isDate = date && (!before || isAllowed(*date, *before));
    const auto time = parseTime(m_line, index);
    const bool isTime = time && (!before || isAllowed(*time, *before));
    if (isDate && isTime)
        return date->need == Need::company || time->end > date->end ? time : date;
    return isDate ? date : isTime ? time : std::nullopt;
}

bool DateJoiner::isAllowed(const DatePiece& piece, const Whole& whole) const {
    switch (piece.kind) {
    case Kind::time:
        return !whole.hasTime;
    case Kind::date:
        return !whole.hasDate;
    case Kind::weekday:
        return !whole.hasWeekday;
    case Kind::relative:
        return !whole.hasDate && !whole.isRelative && !whole.hasWeekday;
    }
    return false;
}

/// "9:00–17:00", "Mon–Fri", "5 March – 7 April": the same kind on both sides of a sign.
void DateJoiner::extendRange(DatePiece& piece, const Whole* before) const {
    if (piece.isRange)
        return;
    int next = skipRangeSign(m_line, piece.end);
    const bool isSlash = piece.kind == Kind::date && m_line.isMark(piece.end, u'/') &&
                         m_line.isGlued(piece.end) && piece.first.year != Moment::unknown;
    if (isSlash)
        next = piece.end + 1;
    if (next == piece.end)
        return;
    // Only "at" words that are no part of it stand between: "von 9 Uhr bis um 10 Uhr".
    const auto other = piece.kind == Kind::time ? parseTime(m_line, next) : day(next);
    if (!other || other->kind != piece.kind || other->isRange)
        return;
    const bool isWeak = other->need == Need::date || other->need == Need::company;
    if (isWeak && piece.kind == Kind::time && piece.need == Need::date && !before)
        return;
    if (isWeak && piece.kind == Kind::date)
        return;
    const bool isSign = !isRangeWord(m_line, piece.end);
    const bool areShortDays = piece.kind == Kind::weekday && piece.need == Need::company;
    piece.takesFrom = !isSign;
    piece.last = other->first;
    piece.end = other->end;
    piece.isRange = true;
    if (piece.kind == Kind::time && other->need != Need::date)
        piece.need = Need::nothing;
    if (piece.first.year == Moment::unknown && piece.kind == Kind::date)
        piece.first.year = piece.last.year;
    if (piece.first.offset == Moment::noOffset)
        piece.first.offset = piece.last.offset;
    const bool areCapital = m_line.at(piece.begin).capital && m_line.at(other->begin).capital;
    if (areShortDays && areCapital)
        piece.need = m_line.written(piece.begin).size() > 2 ? Need::nothing : Need::company;
}

std::optional<DatePiece> DateJoiner::pieceOrRange(int index, const Whole* before) const {
    auto found = piece(index, before);
    if (found)
        extendRange(*found, before);
    return found;
}

void DateJoiner::take(const DatePiece& piece, Whole& whole) const {
    whole.end = piece.end;
    whole.takesFrom = whole.takesFrom || (whole.begin == piece.begin && piece.takesFrom);
    if (piece.kind == Kind::time) {
        if (!whole.isRange)
            whole.last = whole.first;
        whole.first.takeTime(piece.first);
        whole.last.takeTime(piece.isRange ? piece.last : piece.first);
        whole.hasTime = true;
    } else if (piece.kind == Kind::date) {
        whole.first.takeDate(piece.first);
        whole.last.takeDate(piece.isRange ? piece.last : piece.first);
        whole.hasDate = true;
    } else {
        whole.hasWeekday = whole.hasWeekday || piece.kind == Kind::weekday;
        whole.isRelative = whole.isRelative || piece.kind == Kind::relative;
    }
    whole.isRange = whole.isRange || piece.isRange;
}

/// "Tue Mar 5 14:00:01 2024".
void DateJoiner::takeLateYear(Whole& whole) const {
    const int year = m_line.number(whole.end, 4, 4, 1900, 2199);
    const bool isMissing =
        whole.hasDate && whole.hasTime && !whole.isRange && whole.first.year == Moment::unknown;
    if (!isMissing || year < 0 || !m_line.endsCleanly(whole.end + 1))
        return;
    whole.first.year = whole.last.year = year;
    ++whole.end;
}

/// Also before the slash of an interval of two moments.
bool DateJoiner::endsCleanly(const Whole& whole) const {
    const bool isInterval = whole.hasDate && whole.hasTime && m_line.isMark(whole.end, u'/') &&
                            m_line.number(whole.end + 1, 4, 4, 1000, 2999) > 0;
    return isInterval || m_line.endsCleanly(whole.end);
}

std::optional<DateJoiner::Whole> DateJoiner::chain(int index) const {
    const auto begin = pieceOrRange(index, nullptr);
    if (!begin)
        return std::nullopt;
    Whole whole;
    whole.begin = index;
    take(*begin, whole);
    whole.isCertain =
        begin->need == Need::nothing || (begin->need == Need::preposition && isPrepared(index));
    Whole best = whole;
    bool hasBest = whole.isCertain && endsCleanly(whole);
    bool isPlain = begin->kind != Kind::weekday || begin->need == Need::nothing ||
                   m_line.at(index).capital || m_line.at(index).eastern;
    constexpr int mostPieces = 4;
    for (int i = 0; i < mostPieces; ++i) {
        const auto next = following(whole);
        if (!next || !isPlain)
            break;
        take(*next, whole);
        whole.isCertain =
            whole.isCertain || next->need != Need::company || next->kind != Kind::weekday;
        takeLateYear(whole);
        if (!whole.isCertain || !endsCleanly(whole))
            continue;
        best = whole;
        hasBest = true;
    }
    return hasBest ? std::optional(best) : std::nullopt;
}

/// "2024-03-05 14:00 – 2024-03-06 15:00".
void DateJoiner::extendToRange(Whole& whole) const {
    const int next = skipRangeSign(m_line, whole.end);
    const bool isSlash =
        m_line.isMark(whole.end, u'/') && m_line.isGlued(whole.end) && whole.hasTime;
    if (whole.isRange || (next == whole.end && !isSlash))
        return;
    const auto other = chain(isSlash ? whole.end + 1 : next);
    if (!other || other->isRange || other->hasDate != whole.hasDate ||
        other->isRelative != whole.isRelative)
        return;
    whole.takesFrom = isRangeWord(m_line, whole.end);
    whole.end = other->end;
    whole.last = other->first;
    whole.isRange = true;
    if (whole.first.year == Moment::unknown)
        whole.first.year = whole.last.year;
}

QString DateJoiner::valueOf(const Whole& whole) const {
    if ((whole.isRelative || whole.hasWeekday) && !whole.hasDate)
        return {};
    const auto isoOf = [&](const Moment& moment) {
        return whole.hasDate && !moment.hasDate() ? QString() : moment.toIso();
    };
    const QString first = isoOf(whole.first);
    if (!whole.isRange || first.isEmpty())
        return first;
    const QString last = isoOf(whole.last);
    return last.isEmpty() ? QString() : first + u'/' + last;
}

std::optional<DateJoiner::Joined> DateJoiner::at(int index) const {
    constexpr int namedDay = 2;
    const bool isNamedDay =
        m_line.has(index, Role::weekday) && m_line.value(index - 1, Role::notDate) == namedDay;
    if (!mayBegin(index) || isNamedDay || !m_line.beginsCleanly(index))
        return std::nullopt;
    auto whole = chain(index);
    if (!whole)
        return std::nullopt;
    extendToRange(*whole);
    const bool hasFrom =
        whole->takesFrom && m_line.isWord(index - 1) && m_line.has(index - 1, Role::from);
    return Joined{hasFrom ? index - 1 : index, whole->end, valueOf(*whole)};
}

} // namespace quorvel
