#pragma once

#include <QString>

namespace quorvel {

/// What a word can be in a date. A word may be several things.
enum class Role : quint8 {
    month,
    weekday,
    dayName,
    dayPart,
    dayPartLead,
    shortUnit,
    period,
    which,
    whichAfter,
    number,
    ordinal,
    ordinalSuffix,
    ago,
    agoLead,
    inLead,
    through,
    at,
    hourLead,
    of,
    from,
    to,
    on,
    dottedOn,
    article,
    edge,
    clock,
    halfDay,
    zone,
    noon,
    hourPart,
    past,
    before,
    yearMark,
    notDate,
    french,
    phraseStart,
    phraseWord,
    era,
    eastFirst,
    eastYear,
    eastMonth,
    eastDay,
    eastHour,
    eastMinute,
    eastSecond,
    eastHalf,
    eastHalfDay,
    eastWeek,
    feira,
};

using RoleMask = quint64;

template <typename... Roles>
constexpr RoleMask maskOf(Roles... roles) {
    return (... | (RoleMask(1) << int(roles)));
}

/// How much a word says by itself.
enum class Strength : quint8 {
    plain,

    /// Also an ordinary word or a short form: needs a capital letter or company.
    ambiguous,

    /// Mostly an ordinary word: needs a year beside it.
    weak,
};

/// Words of one meaning, folded, with a blank between two.
struct WordRow {
    Role role;
    qint16 value;
    Strength strength;
    const char16_t* words;
};

/// The meanings of a word, as a chain.
class WordMeanings {
public:
    static constexpr qint16 none = -1;

    /// Of a folded word: the head of its chain, or `none`.
    static qint16 of(QStringView folded);

    /// Of the longest word of scripts without blanks at the beginning of this text; `length`
    /// becomes how long it is.
    static qint16 ofEastern(QStringView text, qsizetype& length);

    static RoleMask roles(qint16 head);

    /// The row of that role in the chain, or null.
    static const WordRow* row(qint16 head, Role role);
};

} // namespace quorvel
