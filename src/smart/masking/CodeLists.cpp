#include "smart/masking/CodeLists.h"

#include "smart/masking/CharacterBits.h"
#include "smart/masking/CodeRules.h"

#include <algorithm>

namespace quorvel {

namespace {

constexpr qsizetype longestCode = 80;

bool isCodeUnit(QChar unit) {
    return isAsciiAlphanumeric(unit) || unit == u'-';
}

/// Behind blanks, commas, bullets and the number of a line ("3. ").
qsizetype nextCode(QStringView text, qsizetype at) {
    constexpr qsizetype mostBetween = 12;
    const qsizetype limit = qMin(text.size(), at + mostBetween);
    const auto isMark = [](QChar unit) {
        return hasBit(unit, blankBit) || QStringView(u",;|*\"'[]()").contains(unit) ||
               unit == QChar(0x2022);
    };
    while (at < limit && isMark(text[at]))
        ++at;
    const qsizetype digits = endOfBits(text.left(at + 3), at, digitBit);
    const bool isNumbered =
        digits > at && (unitAt(text, digits) == u'.' || unitAt(text, digits) == u')');
    return isNumbered ? nextCode(text.left(limit), digits + 1) : at;
}

qsizetype endOfCode(QStringView text, qsizetype start) {
    const qsizetype limit = qMin(text.size(), start + longestCode);
    qsizetype end = start;
    while (end < limit && isCodeUnit(text[end]))
        ++end;
    return end;
}

/// Letters and digits, or digits in one or more groups.
bool isCode(QStringView code) {
    constexpr qsizetype least = 4;
    if (code.size() < least || code.size() >= longestCode || code.front() == u'-')
        return false;
    const bool hasDigit =
        std::ranges::any_of(code, [](QChar unit) { return hasBit(unit, digitBit); });
    // "2026-01-31", "10-digit"
    const bool isDate = code.size() == 10 && code[4] == u'-' && code[7] == u'-';
    const bool isWord = code.size() > 5 && hasBit(code.front(), digitBit) &&
                        std::ranges::all_of(code.last(5), isAsciiLetter) && code.contains(u'-');
    const bool isMixedGroup = code.size() == 4 &&
                              hasBit(code[0], upperBit) != hasBit(code[1], upperBit) &&
                              hasBit(code[1], upperBit) != hasBit(code[2], upperBit);
    return (hasDigit || isMixedGroup) && !isDate && !isWord;
}

} // namespace

std::optional<SecretRange> codeListAt(QStringView text, qsizetype start) {
    constexpr int most = 100;
    qsizetype first = -1;
    qsizetype last = -1;
    qsizetype at = start;
    for (int count = 0; count < most; ++count) {
        const qsizetype begin = nextCode(text, at);
        const qsizetype end = endOfCode(text, begin);
        if (!isCode(text.mid(begin, end - begin)))
            break;
        first = first < 0 ? begin : first;
        at = last = end;
    }
    constexpr qsizetype least = 6;
    return first >= 0 && last - first >= least ? std::optional(SecretRange{first, last - first})
                                               : std::nullopt;
}

GroupReading groupedKeyAt(QStringView text, qsizetype start, int leastGroups) {
    constexpr qsizetype group = 4;
    const QChar blank = unitAt(text, start + group);
    if (bitsOf(blank) != blankBit && blank != u'-')
        return {{}, start};
    const int letters = hasBit(text[start], lowerBit)   ? lowerBit
                        : hasBit(text[start], upperBit) ? upperBit
                                                        : 0;
    int digits = 0;
    int groups = 0;
    qsizetype end = start;
    for (qsizetype at = start; groups < 32; at += group + 1, ++groups) {
        const QStringView piece = text.mid(at, group);
        const auto isIn = [letters](QChar unit) {
            const int bits = letters == 0 ? lowerBit | upperBit : letters;
            return hasBit(unit, bits) || (unit >= u'2' && unit <= u'7');
        };
        const bool isApart = !isAsciiAlphanumeric(unitAt(text, at + group));
        if (piece.size() != group || !std::ranges::all_of(piece, isIn) || !isApart)
            break;
        digits += int(std::ranges::count_if(piece, [](QChar u) { return hasBit(u, digitBit); }));
        end = at + group;
        if (unitAt(text, end) != blank) {
            ++groups;
            break;
        }
    }
    // Of thirty-two signs six are digits.
    constexpr int leastDigitRate = 10;
    const bool isHex = std::ranges::none_of(text.mid(start, end - start), [](QChar unit) {
        return isAsciiLetter(unit) && (unit.unicode() | 0x20) > u'f';
    });
    const bool isRandom = !isHex && digits >= 2 &&
                          digits * 100 >= int(end - start) * leastDigitRate &&
                          digits * 2 < int(end - start);
    if (groups < leastGroups || !isRandom)
        return {{}, end};
    return {SecretRange{start, end - start}, end};
}

std::optional<SecretRange> codeBefore(QStringView text, const Label& label) {
    constexpr qsizetype reach = 60;
    qsizetype start = label.start;
    while (start > 0 && label.start - start < reach && !hasBit(text[start - 1], lineEndBit))
        --start;
    if (start > 0 && !hasBit(text[start - 1], lineEndBit))
        return {};
    start = afterBlanks(text, start);
    while (QStringView(u"<#>").contains(unitAt(text, start)) && !unitAt(text, start).isNull())
        ++start;
    start = afterBlanks(text, start);
    // "G-482913"
    if (isAsciiLetter(unitAt(text, start)) && unitAt(text, start + 1) == u'-')
        start += 2;
    qsizetype end = endOfBits(text.left(start + 10), start, digitBit);
    const bool isGroup = end - start == 3 || end - start == 4;
    if (isGroup && (unitAt(text, end) == u' ' || unitAt(text, end) == u'-') &&
        hasBit(unitAt(text, end + 1), digitBit))
        end = endOfBits(text.left(end + 6), end + 1, digitBit);
    const qsizetype size = end - start;
    const bool isApart = isVerbAt(text, afterBlanks(text, end));
    if (size < 4 || size > 9 || !isApart || !hasBit(text[end - 1], digitBit))
        return {};
    const LabelledValue value{Separator::verb, false, false, true, start, end};
    return isSecretValue(text, label, value) ? std::optional(SecretRange{start, size})
                                             : std::nullopt;
}

} // namespace quorvel
