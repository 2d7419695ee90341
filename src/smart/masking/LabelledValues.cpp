#include "smart/masking/LabelledValues.h"

#include "smart/masking/CharacterBits.h"
#include "smart/masking/ValueEnds.h"

#include <algorithm>

namespace quorvel {

namespace {

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

bool isOpening(QChar unit) {
    return unit == u'[' || unit == u'(' || unit == QChar(0x3010) || unit == QChar(0x300C);
}

/// Whether a name and a password are announced, as by "Login/Password".
bool announcesPair(QStringView text, const Label& label) {
    if (label.kind == LabelKind::pair)
        return true;
    qsizetype slash = label.start - 1;
    if (bitsOf(unitAt(text, slash)) == blankBit)
        --slash;
    const QChar before = unitAt(text, slash - 1);
    return unitAt(text, slash) == u'/' && (isLetter(before) || bitsOf(before) == blankBit);
}

/// Where the password of "name / password" or "name:password" begins, or -1.
qsizetype secondOfPair(QStringView text, qsizetype start, qsizetype end) {
    const qsizetype next = afterBlanks(text, end);
    if (unitAt(text, next) == u'/' || unitAt(text, next) == u'|')
        return afterBlanks(text, next + 1);
    const QStringView first = text.mid(start, end - start);
    for (const QChar mark : {QChar(u'/'), QChar(u':')}) {
        const qsizetype at = first.indexOf(mark);
        if (at > 0 && at + 1 < first.size() && !first.contains(u"://"))
            return start + at + 1;
    }
    return -1;
}

} // namespace

std::optional<LabelledValue> valueOf(QStringView text, const Label& label) {
    const auto gap = gapAfter(text, label);
    if (!gap)
        return {};
    LabelledValue value{gap->separator, false, gap->isTight, gap->isFar};
    qsizetype start = skippedStars(text, afterBlanks(text, gap->end));
    if (hasBit(unitAt(text, start), lineEndBit) && gap->separator != Separator::verb &&
        !gap->isFar) {
        value.separator = Separator::lineEnd;
        start = endOfBits(text.left(start + 4), start, blankBit);
    }
    start = afterLiteralPrefix(text, start);
    if (isQuote(unitAt(text, start)) && isInsideQuote(text, label, text[start]))
        return {};
    if (isQuote(unitAt(text, start)) && gap->separator != Separator::tag) {
        const qsizetype close = closingQuote(text, start + 1, text[start]);
        if (close >= 0 && label.kind == LabelKind::pair)
            return {};
        if (close >= 0) {
            value.isQuoted = true;
            value.start = start + 1;
            value.end = close;
            return value;
        }
        ++start;
    }
    if (isOpening(unitAt(text, start)) &&
        (label.kind == LabelKind::code || unitAt(text, start).unicode() >= 0x80))
        ++start;
    value.start = start;
    value.end = endOfValue(text, label, value);
    if (announcesPair(text, label)) {
        const qsizetype second = secondOfPair(text, value.start, value.end);
        if (second < 0 && label.kind == LabelKind::pair)
            return {};
        value.start = second < 0 ? value.start : second;
        value.end = second < 0 ? value.end : endOfValue(text, label, value);
    }
    if (value.separator != Separator::tag)
        value.end = withoutClosingMarks(text, value.start, value.end);
    const bool isUnclosed = value.separator == Separator::tag && text.mid(value.end, 2) != u"</";
    return value.end > value.start && !isUnclosed ? std::optional(value) : std::nullopt;
}

} // namespace quorvel
