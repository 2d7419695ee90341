#include "platform/text/dates/DateJoiner.h"

namespace quorvel {

namespace {

using Kind = DatePiece::Kind;
using Need = DatePiece::Need;

} // namespace

/// Whether a word before says that a time or a day follows.
bool DateJoiner::isPrepared(int index) const {
    return m_line.hasAny(index - 1, maskOf(Role::at, Role::on, Role::from, Role::to)) ||
           m_line.number(index - 1, 2, 2, 12, 12) > 0;
}

/// Over what joins two parts: a comma, "at", "den", a bracket before a weekday; `isAt` tells
/// whether a word said that a time follows.
int DateJoiner::skipJoint(const Whole& whole, bool& isAt) const {
    int at = whole.end;
    const bool isDot = m_line.isMark(at, u'.') && m_line.isGlued(at) && whole.hasWeekday &&
                       !whole.hasDate && !whole.hasTime;
    if (isDot)
        ++at;
    const bool isDash =
        m_line.isMark(at, u'-') || m_line.isMark(at, u'–') || m_line.isMark(at, u'—');
    if (m_line.isMark(at, u',') || m_line.isMark(at, u'@') || (isDash && !m_line.isGlued(at)))
        ++at;
    if (m_line.isMark(at, u':') && m_line.isGlued(at) && whole.hasDate && m_line.isGlued(at + 1))
        ++at;
    if (m_line.isMark(at, u'(') || m_line.isMark(at, u'|') || m_line.isMark(at, u'·'))
        ++at;
    isAt = false;
    constexpr RoleMask joining =
        maskOf(Role::at, Role::on, Role::of, Role::article, Role::from, Role::hourLead);
    for (int i = 0; i < 2 && m_line.isWord(at) && m_line.hasAny(at, joining); ++i) {
        // "à" and "a" may be of both; a word that begins a date of its own is no joint.
        if (m_line.hasAny(at, maskOf(Role::weekday, Role::dayName, Role::month)))
            break;
        isAt = isAt || m_line.hasAny(at, maskOf(Role::at, Role::hourLead));
        const bool isShort =
            m_line.has(at, Role::hourLead) && m_line.isMark(at + 1, u'.') && m_line.isGlued(at + 1);
        at += isShort ? 2 : 1;
    }
    return at;
}

/// "T140000Z" and "T14:00:00Z" behind a date.
std::optional<DatePiece> DateJoiner::isoTime(const Whole& whole) const {
    const int at = whole.end;
    const bool isJoined = whole.hasDate && !whole.hasTime && m_line.isWord(at) &&
                          m_line.isGlued(at) && m_line.isGlued(at + 1) && m_line.folded(at) == u"t";
    if (!isJoined)
        return std::nullopt;
    const int digits = m_line.at(at + 1).digits;
    const int number = m_line.number(at + 1, 4, 6, 0, 240000);
    if (digits <= 2 || number < 0)
        return parseTime(m_line, at + 1);
    DatePiece time;
    time.kind = Kind::time;
    time.begin = at + 1;
    time.end = at + 2;
    const bool hasSeconds = digits == 6;
    time.first.second = hasSeconds ? number % 100 : Moment::unknown;
    time.first.minute = (hasSeconds ? number / 100 : number) % 100;
    time.first.hour = hasSeconds ? number / 10000 : number / 100;
    if (digits == 5 || time.first.hour > 24 || time.first.minute > 59 || time.first.second > 59)
        return std::nullopt;
    time.end = parseZone(m_line, time.end, time.first);
    return time;
}

/// "So at 5" and "Do at 8" are no days; "Mon at 9" is one.
bool DateJoiner::isNoChance(const Whole& whole) const {
    constexpr int shortest = 3;
    return whole.isCertain || m_line.written(whole.begin).size() >= shortest;
}

bool DateJoiner::beginsDate(int index) const {
    const int at = m_line.isMark(index, u',') || m_line.isMark(index, u'.') ? index + 1 : index;
    const auto next = day(at);
    return next && next->kind == Kind::date;
}

std::optional<DatePiece> DateJoiner::following(const Whole& whole) const {
    if (const auto time = isoTime(whole))
        return time;
    bool isAt = false;
    const int at = skipJoint(whole, isAt);
    const bool isGlued = at == whole.end && m_line.isGlued(at) && !m_line.at(at).eastern &&
                         !m_line.at(at - 1).eastern;
    if (isGlued)
        return std::nullopt;
    auto next = pieceOrRange(at, &whole);
    if (!next)
        return std::nullopt;
    const bool isBracketed = m_line.isMark(whole.end, u'(');
    if (isBracketed) {
        if (next->kind != Kind::weekday || !m_line.isMark(next->end, u')'))
            return std::nullopt;
        ++next->end;
    }
    const bool knowsDay = whole.hasDate || whole.isRelative || whole.hasWeekday;
    const bool isFulfilled = next->kind != Kind::time || next->need == Need::nothing ||
                             (next->need == Need::preposition && knowsDay) ||
                             (next->need == Need::date && knowsDay && isAt && isNoChance(whole));
    const bool isDistant = next->kind != Kind::time && at > whole.end + 2 && !whole.hasWeekday;
    if (!isFulfilled || isDistant)
        return std::nullopt;
    // "3/15, Fri 3/16": the weekday belongs to the next date.
    const bool isOfNext = next->kind == Kind::weekday && !isBracketed && beginsDate(next->end);
    if (isOfNext && (whole.hasDate || whole.hasTime))
        return std::nullopt;
    // "5 March, Mar": a short weekday behind a date needs a capital letter.
    if (next->kind == Kind::weekday && next->need == Need::company && !isBracketed &&
        !m_line.at(next->begin).capital)
        return std::nullopt;
    return next;
}

} // namespace quorvel
