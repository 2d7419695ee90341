#include "platform/text/dates/DateParsers.h"
#include "platform/text/dates/DateWordTable.h"

#include <QStringTokenizer>

#include <algorithm>
#include <array>
#include <initializer_list>

namespace quorvel {

namespace {

/// One place of a pattern: what may stand there.
struct Place {
    RoleMask roles = 0;
    bool isOptional = false;
};

constexpr Place one(RoleMask roles) {
    return {roles, false};
}

constexpr Place maybe(Role role) {
    return {maskOf(role), true};
}

constexpr RoleMask anyUnit = maskOf(Role::shortUnit, Role::period);

using Pattern = Place[5];

/// What points at a day or a time from where the reader stands.
constexpr Pattern patterns[] = {
    {one(maskOf(Role::dayName)), maybe(Role::dayPartLead), maybe(Role::dayPartLead),
     one(maskOf(Role::dayPart))},
    {one(maskOf(Role::dayName)), maybe(Role::of), one(maskOf(Role::weekday))},
    {one(maskOf(Role::dayName))},
    {one(maskOf(Role::eastWeek)), one(maskOf(Role::number))},
    {one(maskOf(Role::eastWeek)), maybe(Role::of), one(maskOf(Role::weekday))},
    {one(maskOf(Role::eastWeek))},
    {one(maskOf(Role::which)), one(maskOf(Role::weekday)), maybe(Role::dayPartLead),
     maybe(Role::dayPartLead), one(maskOf(Role::dayPart))},
    {one(maskOf(Role::which)), one(maskOf(Role::period)), maybe(Role::of),
     one(maskOf(Role::weekday))},
    {one(maskOf(Role::weekday)), maybe(Role::of), one(maskOf(Role::which)),
     one(maskOf(Role::period))},
    {one(maskOf(Role::which)),
     one(maskOf(Role::period, Role::weekday, Role::dayPart, Role::month))},
    {maybe(Role::article), one(maskOf(Role::period, Role::weekday)), one(maskOf(Role::whichAfter))},
    {one(maskOf(Role::weekday)), maybe(Role::dayPartLead), maybe(Role::dayPartLead),
     one(maskOf(Role::dayPart))},
    {one(maskOf(Role::number)), one(anyUnit), one(maskOf(Role::ago))},
    {one(maskOf(Role::number)), one(maskOf(Role::number)), one(anyUnit), one(maskOf(Role::ago))},
    {one(anyUnit), one(maskOf(Role::ago))},
    {one(maskOf(Role::agoLead)), one(maskOf(Role::number)), one(anyUnit)},
    {one(maskOf(Role::inLead)), one(maskOf(Role::number)), one(anyUnit)},
    {one(maskOf(Role::inLead)), one(maskOf(Role::number)), one(maskOf(Role::number)), one(anyUnit)},
    {one(maskOf(Role::through)), one(anyUnit)},
    {one(maskOf(Role::edge)), maybe(Role::of), maybe(Role::article), maybe(Role::which),
     one(maskOf(Role::period))},
    {one(maskOf(Role::edge)), maybe(Role::of), one(maskOf(Role::month))},
};

constexpr int longestPhrase = 4;

/// The words of the phrases by their heads in the table, which are quick to compare.
struct PhraseWords {
    std::array<std::array<qint16, longestPhrase + 1>, std::size(datePhrases)> heads{};

    PhraseWords() {
        for (size_t i = 0; i < heads.size(); ++i) {
            heads[i].fill(WordMeanings::none);
            size_t count = 0;
            const QString words = QString::fromUtf16(datePhrases[i].words);
            for (const QStringView word : QStringView(words).tokenize(u' '))
                heads[i][count++] = WordMeanings::of(word);
        }
    }
};

/// How many lexemes the phrase takes here; 0 when something else stands here.
int lengthOfPhrase(const DateLine& line, int index, size_t phrase) {
    static const PhraseWords words;
    int at = index;
    for (size_t i = 0; words.heads[phrase][i] != WordMeanings::none; ++i) {
        if (at > index && line.isMark(at, u'-') && line.isGlued(at))
            ++at;
        if (!line.isWord(at) || line.at(at).meanings != words.heads[phrase][i])
            return 0;
        ++at;
    }
    return at - index;
}

int phraseLength(const DateLine& line, int index, RoleMask roles) {
    int longest = 0;
    for (size_t i = 0; i < std::size(datePhrases); ++i)
        if ((roles & maskOf(datePhrases[i].role)) != 0)
            longest = std::max(longest, lengthOfPhrase(line, index, i));
    return longest;
}

/// How many lexemes stand for this place; 0 when none.
int placeLength(const DateLine& line, int index, RoleMask roles) {
    if (line.has(index, Role::phraseStart)) {
        const int length = phraseLength(line, index, roles);
        if (length > 0)
            return length;
    }
    return line.hasAny(index, roles) ? 1 : 0;
}

/// The end of what matches the pattern from here, or `index`.
int matchEnd(const DateLine& line, int index, const Pattern& pattern) {
    int at = index;
    for (const Place& place : pattern) {
        if (place.roles == 0)
            break;
        const int length = placeLength(line, at, place.roles);
        if (length == 0 && !place.isOptional)
            return index;
        at += length;
    }
    return at;
}

/// "hier" is German for "here", "mañana" and "morgen" are the morning too.
bool isDayName(const DateLine& line, int index) {
    const WordRow* row = line.row(index, Role::dayName);
    if (!row || row->strength == Strength::plain)
        return true;
    if (line.folded(index) == u"hier") {
        constexpr int reach = 8;
        for (int i = index - reach; i <= index + reach; ++i)
            if (line.has(i, Role::french))
                return true;
        return false;
    }
    const QString before = line.isWord(index - 1) ? line.folded(index - 1) : QString();
    constexpr QStringView nouns[] = {u"la",    u"por",    u"guten", u"am", u"jeden",
                                     u"den",   u"der",    u"goede", u"de", u"esta",
                                     u"einen", u"dieser", u"diesen"};
    return std::find(std::begin(nouns), std::end(nouns), before) == std::end(nouns);
}

bool isOneOf(const QString& word, std::initializer_list<QStringView> words) {
    return std::find(words.begin(), words.end(), word) != words.end();
}

/// "in 30 seconds", "over 24 hours": how long something takes, not when it is. Words of two
/// languages make no date either ("in a tag").
bool isDuration(const DateLine& line, int index, int end) {
    constexpr int second = 1;
    if (!line.hasAny(index, maskOf(Role::inLead)))
        return false;
    const QString lead = line.folded(index);
    const QString unit = line.folded(end - 1);
    const bool isDutch = isOneOf(
        unit, {u"dag", u"dagen", u"weken", u"maand", u"maanden", u"jaar", u"uur", u"minuten"});
    const bool isMixed = line.folded(end - 2) == u"a" && isOneOf(unit, {u"tag", u"dag"});
    return line.value(end - 1, Role::shortUnit) == second || (lead == u"over" && !isDutch) ||
           isMixed;
}

/// The roles the last place of a pattern asks for.
RoleMask lastRoles(const Pattern& pattern) {
    RoleMask roles = 0;
    for (const Place& place : pattern)
        roles = place.roles != 0 ? place.roles : roles;
    return roles;
}

bool isPlausible(const DateLine& line, int index, int end, const Pattern& pattern) {
    const bool isOne = end == index + 1;
    if (line.has(index, Role::dayName) && !isDayName(line, index))
        return false;
    if (isOne)
        return true;
    // "This may be", "last mar": a month of these must look like one; short weekdays as well.
    for (const Role role : {Role::month, Role::weekday}) {
        const bool isAsked = (lastRoles(pattern) & maskOf(role)) != 0;
        const WordRow* row = isAsked ? line.row(end - 1, role) : nullptr;
        if (row && row->strength != Strength::plain && !line.at(end - 1).capital &&
            !line.at(end - 1).eastern && !line.has(end + 1, Role::feira))
            return false;
        const bool isFirst = (pattern[0].roles & maskOf(role)) != 0;
        const bool isShout = row && row->strength != Strength::plain && !line.at(end - 1).eastern &&
                             (line.isUpper(end - 1) || line.folded(index) == u"this");
        if (isShout)
            return false;
        const WordRow* first = isFirst ? line.row(index, role) : nullptr;
        if (first && first->strength != Strength::plain && !line.at(index).capital)
            return false;
    }
    return !isDuration(line, index, end);
}

} // namespace

std::optional<DatePiece> parseRelativeDate(const DateLine& line, int index) {
    constexpr RoleMask beginnings =
        maskOf(Role::dayName, Role::eastWeek, Role::which, Role::article, Role::period,
               Role::weekday, Role::number, Role::shortUnit, Role::agoLead, Role::inLead,
               Role::through, Role::edge, Role::phraseStart);
    if (!line.hasAny(index, beginnings))
        return std::nullopt;
    int end = index;
    const RoleMask here = line.at(index).roles;
    const bool mayBePhrase = line.has(index, Role::phraseStart);
    for (const Pattern& pattern : patterns) {
        if (!mayBePhrase && !pattern[0].isOptional && (pattern[0].roles & here) == 0)
            continue;
        const int matched = matchEnd(line, index, pattern);
        if (matched > end && isPlausible(line, index, matched, pattern))
            end = matched;
    }
    if (end == index)
        return std::nullopt;
    if (line.has(end - 1, Role::weekday) && line.isMark(end, u'-') &&
        line.has(end + 1, Role::feira))
        end += 2;
    DatePiece piece;
    piece.kind = DatePiece::Kind::relative;
    piece.begin = index;
    piece.end = end;
    return piece;
}

std::optional<DatePiece> parseWeekday(const DateLine& line, int index) {
    const WordRow* row = line.row(index, Role::weekday);
    if (!row)
        return std::nullopt;
    DatePiece piece;
    piece.kind = DatePiece::Kind::weekday;
    piece.begin = index;
    piece.end = index + 1;
    const bool isFeira = line.isMark(index + 1, u'-') && line.has(index + 2, Role::feira);
    if (isFeira)
        piece.end = index + 3;
    else if (row->strength != Strength::plain)
        piece.need = DatePiece::Need::company;
    return piece;
}

} // namespace quorvel
