#include "smart/masking/Gaps.h"

#include "foundation/Folding.h"
#include "smart/masking/CharacterBits.h"
#include "smart/masking/GapWords.h"
#include "smart/masking/MarkupGaps.h"

#include <QStringTokenizer>

#include <algorithm>

namespace quorvel {

namespace {

/// "Password (guest): x".
qsizetype afterRemark(QStringView text, qsizetype at) {
    constexpr qsizetype longest = 40;
    const qsizetype open = afterBlanks(text, at);
    if (unitAt(text, open) != u'(')
        return at;
    const qsizetype close = text.mid(open, longest).indexOf(u')');
    if (close < 0)
        return at;
    const qsizetype next = afterBlanks(text, open + close + 1);
    return unitAt(text, next) == u':' || unitAt(text, next) == u'=' ? next : at;
}

std::optional<Gap> punctuationGap(QStringView text, qsizetype at) {
    const QChar unit = unitAt(text, at);
    const QChar next = unitAt(text, at + 1);
    const bool isColon = unit == u':' || unit == QChar(0xFF1A) || unit == QChar(0xFE55);
    if (isColon && next == u'=')
        return Gap{Separator::equals, false, at + 2};
    if (isColon && next != u':')
        return Gap{Separator::colon, false, at + 1};
    // "$pw->name"
    const bool isMember = unit == u'-' && isLetter(unitAt(text, at - 1));
    if ((unit == u'=' || unit == u'-') && next == u'>' && !isMember)
        return Gap{Separator::equals, false, at + 2};
    if ((unit == u'=' || unit == QChar(0xFF1D)) && next != u'=' && next != u'~')
        return Gap{Separator::equals, false, at + 1};
    if (unit == QChar(0x2192) || unit == u'|')
        return Gap{Separator::tab, false, at + 1};
    return {};
}

/// "Password - x".
std::optional<Gap> dashGap(QStringView text, qsizetype at) {
    const QChar unit = unitAt(text, at);
    const bool isDash = unit == u'-' || unit == QChar(0x2013) || unit == QChar(0x2014);
    const bool isFree =
        bitsOf(unitAt(text, at - 1)) == blankBit && bitsOf(unitAt(text, at + 1)) == blankBit;
    return isDash && isFree ? std::optional(Gap{Separator::verb, false, at + 1}) : std::nullopt;
}

/// "c'est".
std::optional<Gap> elidedVerbGap(QStringView text, qsizetype at) {
    constexpr QStringView elided[] = {u"c'est ", u"c\u2019est ", u"dit is "};
    for (const QStringView verb : elided)
        if (text.mid(at, verb.size()).compare(verb, Qt::CaseInsensitive) == 0)
            return Gap{Separator::verb, false, at + verb.size()};
    return {};
}

std::optional<Gap> verbGap(QStringView text, qsizetype at) {
    const bool mayBeJoined = unitAt(text, at).unicode() >= firstJoined;
    for (const QStringView verb : joinedVerbs)
        if (mayBeJoined && text.mid(at, verb.size()) == verb)
            return Gap{Separator::verb, false, at + verb.size()};
    const qsizetype wordEnd = endOfBits(text.left(at + 8), at, wordBit);
    const QStringView word = text.mid(at, wordEnd - at);
    const bool isVerb = std::ranges::any_of(verbs, [word](QStringView verb) {
        return word.size() == verb.size() && word.compare(verb, Qt::CaseInsensitive) == 0;
    });
    if (!isVerb || wordEnd == at)
        return elidedVerbGap(text, at);
    const qsizetype next = afterBlanks(text, wordEnd);
    const bool hasColon = unitAt(text, next) == u':';
    return Gap{hasColon ? Separator::colon : Separator::verb, false, next + (hasColon ? 1 : 0)};
}

template <size_t size>
bool holdsWord(QStringView plain, const QStringView (&words)[size]) {
    for (const QStringView word : plain.tokenize(u' '))
        if (std::ranges::find(words, word) != std::end(words))
            return true;
    return false;
}

/// Whether one of the words makes the value another thing; `before` is what precedes the value.
bool isTurning(const Label& label, QStringView words, QStringView before) {
    if (label.kind == LabelKind::code || label.kind == LabelKind::pin)
        return false;
    const QString plain = folded(words);
    const bool becomes = before.endsWith(u" to") || before.endsWith(u" auf");
    return holdsWord(plain, turningWords) || (!becomes && holdsWord(plain, changeWords));
}

std::optional<Gap> separatorAt(QStringView text, qsizetype at) {
    if (auto gap = punctuationGap(text, at))
        return gap;
    if (auto gap = dashGap(text, at))
        return gap;
    return verbGap(text, at);
}

/// Units of words in front of a separator, as in "password for the O'Neill host is x".
bool isInPhrase(QChar unit) {
    return hasBit(unit, wordBit) || unit == u'-' || unit == u'\'' || unit == QChar(0x2019) ||
           unit == u'/' || unit == u'"' || unit == QChar(0x201C) || unit == QChar(0x201D);
}

bool isOfProse(QStringView text, const Label& label) {
    // Mostly a verb.
    const QStringView word = text.mid(label.start, label.end - label.start);
    if (word.compare(u"pass", Qt::CaseInsensitive) == 0 ||
        word.startsWith(u"identified", Qt::CaseInsensitive))
        return false;
    if (label.style == LabelStyle::word || label.style == LabelStyle::plain)
        return true;
    const QStringView name = text.mid(label.start, label.end - label.start);
    const bool isHyphenated = name.contains(u'-') && !name.startsWith(u'-');
    return isHyphenated && !name.contains(u'_') && !name.contains(u'.');
}

bool isNumber(QStringView word) {
    constexpr qsizetype least = 4;
    return word.size() >= least &&
           std::ranges::all_of(word, [](QChar unit) { return hasBit(unit, digitBit); });
}

/// Without a separator: "code de la porte 4471", "wifi password router x".
bool leadsOn(QStringView text, const Label& label, QStringView word, qsizetype next) {
    constexpr qsizetype leastWord = 4;
    if (label.kind == LabelKind::code)
        return word.size() >= leastWord && hasBit(unitAt(text, next), digitBit);
    const auto isNetwork = [word](QStringView stem) {
        return word.startsWith(stem, Qt::CaseInsensitive);
    };
    return label.kind == LabelKind::password && std::ranges::any_of(networkWords, isNetwork);
}

/// "Password for the printer: x". A few words on the same line.
std::optional<Gap> farGap(QStringView text, const Label& label, qsizetype at) {
    constexpr int mostWords = 6;
    if (!isOfProse(text, label))
        return {};
    const qsizetype first = at;
    for (int word = 0; word < mostWords; ++word) {
        const qsizetype start = at;
        const qsizetype limit = qMin(text.size(), at + 24);
        while (at < limit && isInPhrase(text[at]))
            ++at;
        const QStringView written = text.mid(start, at - start);
        if (at == start || isNumber(written))
            return {};
        const bool isApart = bitsOf(unitAt(text, at)) == blankBit;
        const qsizetype next = afterBlanks(text, at);
        auto gap = isApart || unitAt(text, at) == u':' || unitAt(text, at) == QChar(0xFF1A)
                       ? separatorAt(text, next)
                       : std::nullopt;
        if (gap) {
            gap->isFar = true;
            return isTurning(label, text.mid(first, at - first),
                             text.mid(first, gap->end - first).trimmed())
                       ? std::nullopt
                       : gap;
        }
        if (!isApart)
            return {};
        if (leadsOn(text, label, written, next) &&
            !isTurning(label, text.mid(first, at - first), {}))
            return Gap{Separator::blank, false, next, true};
        at = next;
    }
    return {};
}

/// "The password to the house"; in other languages the word is a verb.
bool isPreposition(QStringView text, const Label& label, qsizetype at) {
    constexpr QStringView english[] = {u"word", u"code", u"pass", u"pin", u"key", u"token", u"pw"};
    const QStringView name = text.mid(label.start, label.end - label.start);
    const auto isEnd = [name](QStringView end) { return name.endsWith(end, Qt::CaseInsensitive); };
    // "I changed the password to x."
    constexpr qsizetype reach = 24;
    const QStringView before = text.left(label.start).right(reach);
    const bool becomes = before.contains(u"chang", Qt::CaseInsensitive) ||
                         before.contains(u"set", Qt::CaseInsensitive);
    return text.mid(at, 3).compare(u"to ", Qt::CaseInsensitive) == 0 && !becomes &&
           std::ranges::any_of(english, isEnd);
}

} // namespace

qsizetype afterLabelMarks(QStringView text, qsizetype at) {
    for (int count = 0; count < 4; ++count) {
        const QChar unit = unitAt(text, at);
        const bool isMark = unit == u'"' || unit == u'\'' || unit == u'`' || unit == u']' ||
                            unit == u'*' || unit == u'\\' || unit == QChar(0x201D) ||
                            unit == QChar(0xBB) || unit == QChar(0x300D);
        if (!isMark)
            break;
        ++at;
    }
    return at;
}

bool isVerbAt(QStringView text, qsizetype at) {
    return verbGap(text, at) || dashGap(text, at) || unitAt(text, at) == u':';
}

bool isQuote(QChar unit) {
    return unit == u'"' || unit == u'\'' || unit == u'`' || unit == QChar(0x201C) ||
           unit == QChar(0x201E) || unit == QChar(0x201D) || unit == QChar(0x2018) ||
           unit == QChar(0x2019) || unit == QChar(0xAB) || unit == QChar(0x300C);
}

std::optional<Gap> gapAfter(QStringView text, const Label& label) {
    if (label.style == LabelStyle::element) {
        // Attributes of the element do not matter.
        const qsizetype close = text.mid(label.end, 80).indexOf(u'>');
        const bool isEmpty = close > 0 && text[label.end + close - 1] == u'/';
        if (close >= 0 && !isEmpty)
            return Gap{Separator::tag, true, label.end + close + 1};
    }
    if (const auto gap = attributeGap(text, label))
        return gap;
    if (const auto gap = argumentGap(text, label))
        return gap;
    if (const auto gap = nextElementGap(text, label.end))
        return gap;
    const qsizetype marks = afterRemark(text, afterLabelMarks(text, label.end));
    const qsizetype at = afterBlanks(text, marks);
    if (auto gap = punctuationGap(text, at)) {
        gap->isTight = at == marks && bitsOf(unitAt(text, gap->end)) != blankBit;
        // "<b>Password:</b> x"
        if (const auto next = nextElementGap(text, gap->end); next && next->end > gap->end)
            return next;
        return gap;
    }
    if (const auto gap = dashGap(text, at))
        return gap;
    if (const auto gap = verbGap(text, at); gap && !isPreposition(text, label, at))
        return gap;
    // As forms are copied: a label on a line of its own.
    if (hasBit(unitAt(text, at), lineEndBit) && label.style == LabelStyle::word)
        return Gap{Separator::lineEnd, false, at};
    if (at == label.end && label.style != LabelStyle::plain)
        return {};
    if (const auto gap = farGap(text, label, at))
        return gap;
    const bool isTab = text.mid(label.end, at - label.end).contains(u'\t');
    return Gap{isTab ? Separator::tab : Separator::blank, false, at};
}

} // namespace quorvel
