#include "smart/masking/TokenForms.h"

#include "smart/masking/CharacterBits.h"
#include "smart/masking/RunShape.h"
#include "smart/masking/TokenTable.h"

#include <array>

namespace quorvel {

namespace {

constexpr BeginningFilter tokenBeginnings = [] {
    BeginningFilter filter;
    for (const TokenForm& form : tokenForms) {
        const char16_t first = form.prefix[0].unicode();
        const char16_t second = form.prefix[1].unicode();
        if (form.prefix.size() > 2)
            filter.add(first, second, form.prefix[2].unicode());
        for (char16_t third = 0; form.prefix.size() == 2 && third < 16; ++third)
            filter.add(first, second, third);
    }
    return filter;
}();

constexpr size_t letterCount = 128;

/// The rows of the table by their first letter, in the order of the table.
struct TokenIndex {
    std::array<quint8, std::size(tokenForms)> row{};
    std::array<quint8, letterCount + 1> begin{};
};

constexpr TokenIndex tokenIndex = [] {
    static_assert(std::size(tokenForms) < 256);
    TokenIndex index;
    quint8 count = 0;
    for (size_t letter = 0; letter < letterCount; ++letter) {
        index.begin[letter] = count;
        for (size_t row = 0; row < std::size(tokenForms); ++row)
            if (tokenForms[row].prefix[0].unicode() == letter)
                index.row[count++] = quint8(row);
    }
    index.begin[letterCount] = count;
    return index;
}();

bool isIn(TokenAlphabet alphabet, QChar unit) {
    const char16_t lowered = unit.unicode() | 0x20;
    switch (alphabet) {
    case TokenAlphabet::hex:
        return hasBit(unit, digitBit) || (lowered >= u'a' && lowered <= u'f');
    case TokenAlphabet::capitals:
        return hasBit(unit, upperBit | digitBit);
    case TokenAlphabet::alphanumeric:
        return isAsciiAlphanumeric(unit);
    case TokenAlphabet::url:
        return isAsciiAlphanumeric(unit) || unit == u'-' || unit == u'_';
    case TokenAlphabet::dotted:
        return isAsciiAlphanumeric(unit) || unit == u'-' || unit == u'_' || unit == u'.';
    case TokenAlphabet::base64:
        return (unit.unicode() < 128 && hasBit(unit, dataBit) && unit != u'~') || unit == u'%';
    }
    return false;
}

qsizetype endOfBody(QStringView text, qsizetype start, const TokenForm& form) {
    const qsizetype limit = qMin(text.size(), start + form.most + 1);
    qsizetype end = start;
    while (end < limit && isIn(form.alphabet, text[end]))
        ++end;
    while (end > start && (text[end - 1] == u'.' || text[end - 1] == u'-'))
        --end;
    return end;
}

bool isTrusted(QStringView body, const TokenForm& form) {
    const RunShape shape = shapeOf(body);
    // Sixteen capitals may come without a digit.
    constexpr int leastCapitals = 6;
    if (form.alphabet == TokenAlphabet::capitals)
        return shape.distinct >= leastCapitals;
    if (form.trust == TokenTrust::firm)
        return isFilled(shape);
    if (!looksGenerated(shape))
        return false;
    // Names and words with a digit at the end share the beginnings of loose forms.
    if (shape.lower > 1 && shape.upper > 1)
        return shape.digits > 0 && shape.longestLower <= 9 && shape.randomness() >= -25;
    return shape.digits >= 2 && shape.digits * 5 >= shape.size && shape.longestLower <= 12;
}

std::optional<SecretRange> matched(QStringView text, qsizetype start, const TokenForm& form) {
    if (text.mid(start, form.prefix.size()) != form.prefix)
        return {};
    const qsizetype body = start + form.prefix.size();
    const qsizetype end = endOfBody(text, body, form);
    const qsizetype size = end - body;
    if (size < form.least || size > form.most || isAsciiAlphanumeric(unitAt(text, end)))
        return {};
    if (!isTrusted(text.mid(body, size), form))
        return {};
    return hiddenPart(start, end, form.prefix.size());
}

} // namespace

SecretRange hiddenPart(qsizetype start, qsizetype end, qsizetype prefix) {
    constexpr qsizetype suffix = 4;
    constexpr qsizetype leastHidden = 12;
    const qsizetype hidden = end - start - prefix - suffix;
    if (hidden >= leastHidden)
        return {start + prefix, hidden};
    return {start + prefix, end - start - prefix};
}

bool mayBeginServiceToken(QStringView text, qsizetype start) {
    return start + 16 <= text.size() &&
           tokenBeginnings.mayHold(text[start], text[start + 1], text[start + 2]);
}

std::optional<SecretRange> serviceTokenAt(QStringView text, qsizetype start) {
    const size_t letter = text[start].unicode();
    if (letter >= letterCount)
        return {};
    for (size_t at = tokenIndex.begin[letter]; at < tokenIndex.begin[letter + 1]; ++at) {
        const TokenForm& form = tokenForms[tokenIndex.row[at]];
        if (unitAt(text, start + 1) != form.prefix[1])
            continue;
        if (const auto range = matched(text, start, form))
            return range;
    }
    return {};
}

} // namespace quorvel
