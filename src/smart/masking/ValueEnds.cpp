#include "smart/masking/ValueEnds.h"

#include "smart/masking/CharacterBits.h"

#include <algorithm>

namespace quorvel {

namespace {

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

/// Several words go on to the end of their line.
qsizetype phraseEnd(QStringView text, qsizetype start) {
    const qsizetype limit = qMin(text.size(), start + longestValue);
    qsizetype end = start;
    for (qsizetype at = start; at < limit && !hasBit(text[at], lineEndBit); ++at)
        if (!hasBit(text[at], blankBit))
            end = at + 1;
    return end;
}

bool isCodeUnit(QChar unit) {
    const bool isCyrillic = unit.unicode() >= 0x400 && unit.unicode() < 0x460;
    return isAsciiAlphanumeric(unit) || isCyrillic || unit == u'#' || unit == u'*' || unit == u'-';
}

qsizetype endOfDigits(QStringView text, qsizetype at) {
    return endOfBits(text.left(at + 12), at, digitBit);
}

/// "903 117": two groups of the same size, or of three and four.
qsizetype afterSecondGroup(QStringView text, qsizetype start, qsizetype end) {
    const qsizetype size = end - start;
    const bool isGroup = endOfDigits(text, start) == end && (size == 3 || size == 4);
    if (!isGroup || bitsOf(unitAt(text, end)) != blankBit)
        return end;
    const qsizetype second = endOfDigits(text, end + 1);
    const bool isSame = second - end - 1 == size && !isLetter(unitAt(text, second)) &&
                        !hasBit(unitAt(text, second + 1), digitBit);
    return isSame ? second : end;
}

/// Of numbers that open something; what makes them another number stays part of them.
qsizetype codeEnd(QStringView text, qsizetype start) {
    const qsizetype limit = qMin(text.size(), start + longestValue);
    qsizetype at = start;
    while (at < limit) {
        const bool goesOn = isCodeUnit(text[at]);
        const bool isInside =
            hasBit(unitAt(text, at + 1), digitBit) && QStringView(u".,:/").contains(text[at]);
        if (!goesOn && !isInside)
            break;
        ++at;
    }
    return afterSecondGroup(text, start, at);
}

/// Behind a label in a script without blanks a value of ASCII ends where the script goes on.
qsizetype plainEnd(QStringView text, qsizetype start, qsizetype end) {
    if (start < end && text[start].unicode() >= 0x80)
        return end;
    return std::find_if(text.begin() + start, text.begin() + end,
                        [](QChar unit) { return unit.unicode() >= 0x80; }) -
           text.begin();
}

} // namespace

qsizetype endOfValue(QStringView text, const Label& label, const LabelledValue& value) {
    const bool isOpen = value.separator == Separator::colon ||
                        value.separator == Separator::equals ||
                        value.separator == Separator::lineEnd;
    if (label.kind == LabelKind::code || label.kind == LabelKind::pin)
        return codeEnd(text, value.start);
    if ((label.kind == LabelKind::phrase || label.kind == LabelKind::answer) && isOpen)
        return phraseEnd(text, value.start);
    // Scripts without blanks go on for long.
    constexpr qsizetype mostPlain = 80;
    const bool isPlain = label.style == LabelStyle::plain;
    const QStringView read = isPlain ? text.left(value.start + mostPlain) : text;
    const qsizetype end = bareEnd(read, value.start, label, value.separator);
    return label.style == LabelStyle::plain ? plainEnd(text, value.start, end) : end;
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

} // namespace quorvel
