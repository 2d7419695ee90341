#include "smart/masking/LabelledValues.h"

#include "smart/masking/CharacterBits.h"

#include <algorithm>

namespace quorvel {

namespace {

constexpr qsizetype longestValue = 1000;

constexpr QStringView verbs[] = {
    u"is",     u"ist", u"es", u"est",     u"e",  u"\u00E8", u"\u00E9", u"was",
    u"lautet", u"war", u"er", u"\u00E4r", u"on", u"jest",   u"je",     u"to",
};

constexpr QStringView joinedVerbs[] = {u"は", u"是", u"为", u"為", u"은", u"는", u"가", u"이"};

bool isQuote(QChar unit) {
    return unit == u'"' || unit == u'\'' || unit == u'`' || unit == QChar(0x201C) ||
           unit == QChar(0x201E) || unit == QChar(0x201D) || unit == QChar(0x2018) ||
           unit == QChar(0x2019) || unit == QChar(0xAB) || unit == QChar(0x300C);
}

/// Where the mark that ends a quotation stands, or -1.
qsizetype closingQuote(QStringView text, qsizetype start, QChar opening) {
    const qsizetype limit = qMin(text.size(), start + longestValue);
    const bool isPlain = opening.unicode() < 0x80;
    for (qsizetype at = start; at < limit; ++at) {
        const QChar unit = text[at];
        if (hasBit(unit, lineEndBit))
            return -1;
        if (unit == u'\\' && unitAt(text, at + 1) != opening && isPlain)
            ++at;
        else if (isPlain ? unit == opening
                         : (isQuote(unit) || unit == QChar(0xBB) || unit == QChar(0x300D)))
            return unitAt(text, at - 1) == u'\\' && isPlain ? at - 1 : at;
    }
    return -1;
}

/// Closing marks of the label itself: quotes of a key, brackets of an index, stars of bold type.
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

bool isApostrophe(QStringView text, qsizetype at) {
    return text[at] == u'\'' && isLetter(unitAt(text, at - 1)) && isLetter(unitAt(text, at + 1));
}

/// Whether the label stands inside a quotation of that kind, as in `print("Password: " + x)`, so
/// that the next such mark closes it.
bool isInsideQuote(QStringView text, const Label& label, QChar quote) {
    constexpr qsizetype reach = 200;
    if (afterLabelMarks(text, label.end) != label.end)
        return false;
    const qsizetype limit = qMax(qsizetype(0), label.start - reach);
    bool isInside = false;
    for (qsizetype at = label.start - 1; at >= limit && !hasBit(text[at], lineEndBit); --at)
        if (text[at] == quote && !isApostrophe(text, at))
            isInside = !isInside;
    return isInside;
}

struct Gap {
    Separator separator = Separator::blank;
    bool isTight = false;
    qsizetype end = 0;
};

std::optional<Gap> punctuationGap(QStringView text, qsizetype at) {
    const QChar unit = unitAt(text, at);
    const QChar next = unitAt(text, at + 1);
    const bool isColon = unit == u':' || unit == QChar(0xFF1A) || unit == QChar(0xFE55);
    if (isColon && next == u'=')
        return Gap{Separator::equals, false, at + 2};
    if (isColon && next != u':')
        return Gap{Separator::colon, false, at + 1};
    if ((unit == u'=' || unit == u'-') && next == u'>')
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

std::optional<Gap> verbGap(QStringView text, qsizetype at) {
    for (const QStringView verb : joinedVerbs)
        if (text.mid(at, verb.size()) == verb)
            return Gap{Separator::verb, false, at + verb.size()};
    const qsizetype wordEnd = endOfBits(text.left(at + 8), at, wordBit);
    const QStringView word = text.mid(at, wordEnd - at);
    const bool isVerb = std::ranges::any_of(
        verbs, [word](QStringView verb) { return word.compare(verb, Qt::CaseInsensitive) == 0; });
    if (!isVerb || wordEnd == at)
        return {};
    const qsizetype next = afterBlanks(text, wordEnd);
    const bool hasColon = unitAt(text, next) == u':';
    return Gap{hasColon ? Separator::colon : Separator::verb, false, next + (hasColon ? 1 : 0)};
}

std::optional<Gap> gapAfter(QStringView text, const Label& label) {
    if (label.style == LabelStyle::element) {
        // Attributes of the element do not matter.
        const qsizetype close = text.mid(label.end, 80).indexOf(u'>');
        const bool isEmpty = close > 0 && text[label.end + close - 1] == u'/';
        if (close >= 0 && !isEmpty)
            return Gap{Separator::tag, true, label.end + close + 1};
    }
    const qsizetype marks = afterRemark(text, afterLabelMarks(text, label.end));
    const qsizetype at = afterBlanks(text, marks);
    if (auto gap = punctuationGap(text, at)) {
        gap->isTight = at == marks && bitsOf(unitAt(text, gap->end)) != blankBit;
        return gap;
    }
    if (const auto gap = dashGap(text, at))
        return gap;
    if (const auto gap = verbGap(text, at))
        return gap;
    // As forms are copied: a label on a line of its own.
    if (hasBit(unitAt(text, at), lineEndBit) && label.style == LabelStyle::word)
        return Gap{Separator::lineEnd, false, at};
    if (at == label.end)
        return {};
    const bool isTab = text.mid(label.end, at - label.end).contains(u'\t');
    return Gap{isTab ? Separator::tab : Separator::blank, false, at};
}

/// Where a value without quotes stops inside a run without blanks.
bool endsValue(QStringView text, qsizetype at, const Label& label, Separator separator) {
    const QChar unit = text[at];
    const QChar next = unitAt(text, at + 1);
    switch (unit.unicode()) {
    case u'"':
    case u'`':
    case u'\u3002':
    case u'\uFF0C':
    case u'\u3001':
        return true;
    case u'\'':
        return next.isNull() || !isAsciiAlphanumeric(next);
    case u'<':
        return separator == Separator::tag || next == u'/' || isAsciiLetter(next);
    case u'&':
        return label.style == LabelStyle::parameter || text.mid(at, 5) == u"&amp;" ||
               unitAt(text, endOfBits(text.left(at + 40), at + 1, wordBit)) == u'=';
    case u'#':
        return label.style == LabelStyle::parameter;
    case u'|':
        return separator == Separator::tab || bitsOf(next) == blankBit;
    case u';':
    case u',':
        return next.isNull() || !isAsciiAlphanumeric(next) || text.mid(at, 40).contains(u'=') ||
               text.mid(at + 1, 40).contains(u':');
    default:
        return false;
    }
}

qsizetype bareEnd(QStringView text, qsizetype start, const Label& label, Separator separator) {
    const qsizetype limit = qMin(text.size(), start + longestValue);
    qsizetype at = start;
    while (at < limit && !hasBit(text[at], blankBit) && !endsValue(text, at, label, separator))
        ++at;
    return at;
}

qsizetype withoutClosingMarks(QStringView text, qsizetype start, qsizetype end) {
    while (end > start + 1) {
        const QChar last = text[end - 1];
        const QStringView value = text.mid(start, end - start);
        const bool isClosing = (last == u')' && !value.contains(u'(')) ||
                               (last == u']' && !value.contains(u'[')) ||
                               (last == u'}' && !value.contains(u'{'));
        const bool isBold = last == u'*' && value.endsWith(u"**") && !value.startsWith(u'*');
        if (!isClosing && !isBold && last != u'.' && last != u',' && last != u';' && last != u':')
            break;
        --end;
    }
    return end;
}

/// Several words go on to the end of their line.
qsizetype phraseEnd(QStringView text, qsizetype start) {
    const qsizetype limit = qMin(text.size(), start + longestValue);
    qsizetype end = start;
    for (qsizetype at = start; at < limit && !hasBit(text[at], lineEndBit); ++at)
        if (!hasBit(text[at], blankBit))
            end = at + 1;
    return end;
}

/// Prefixes of string literals: r"", b"", L"", @"".
qsizetype afterLiteralPrefix(QStringView text, qsizetype at) {
    const QChar unit = unitAt(text, at);
    const bool isPrefix = unit == u'r' || unit == u'b' || unit == u'u' || unit == u'L' ||
                          unit == u'@' || unit == u'\\';
    const QChar next = unitAt(text, at + 1);
    return isPrefix && (next == u'"' || next == u'\'') ? at + 1 : at;
}

qsizetype skippedStars(QStringView text, qsizetype at) {
    if (text.mid(at, 2) != u"**")
        return at;
    const qsizetype after = afterBlanks(text, at + 2);
    // Two stars may also be a masked value.
    return unitAt(text, after) == u'*' ? at : after;
}

} // namespace

std::optional<LabelledValue> valueOf(QStringView text, const Label& label) {
    const auto gap = gapAfter(text, label);
    if (!gap)
        return {};
    LabelledValue value;
    value.separator = gap->separator;
    value.isTight = gap->isTight;
    qsizetype start = skippedStars(text, afterBlanks(text, gap->end));
    if (hasBit(unitAt(text, start), lineEndBit) && gap->separator != Separator::verb) {
        value.separator = Separator::lineEnd;
        start = endOfBits(text.left(start + 4), start, blankBit);
    }
    start = afterLiteralPrefix(text, start);
    if (isQuote(unitAt(text, start)) && isInsideQuote(text, label, text[start]))
        return {};
    if (isQuote(unitAt(text, start)) && gap->separator != Separator::tag) {
        const qsizetype close = closingQuote(text, start + 1, text[start]);
        if (close >= 0) {
            value.isQuoted = true;
            value.start = start + 1;
            value.end = close;
            return value;
        }
        ++start;
    }
    value.start = start;
    const bool isOpen = value.separator == Separator::colon ||
                        value.separator == Separator::equals ||
                        value.separator == Separator::lineEnd;
    value.end = label.kind == LabelKind::phrase && isOpen
                    ? phraseEnd(text, start)
                    : bareEnd(text, start, label, value.separator);
    if (value.separator != Separator::tag)
        value.end = withoutClosingMarks(text, start, value.end);
    const bool isUnclosed = value.separator == Separator::tag && text.mid(value.end, 2) != u"</";
    return value.end > value.start && !isUnclosed ? std::optional(value) : std::nullopt;
}

} // namespace quorvel
