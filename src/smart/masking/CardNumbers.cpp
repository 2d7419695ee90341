#include "smart/masking/CardNumbers.h"

#include "smart/masking/CardIssuers.h"
#include "smart/masking/CharacterBits.h"

#include <algorithm>
#include <array>

namespace quorvel {

namespace {

constexpr int leastDigits = 13;
constexpr int mostDigits = 19;
constexpr int mostGroups = 8;

/// Groups of digits with the same single separator between them.
struct Groups {
    struct Group {
        qsizetype start = 0;
        int size = 0;
    };
    std::array<Group, mostGroups> at;
    int count = 0;
    qsizetype end = 0;
};

struct Digits {
    std::array<int, mostDigits> value{};
    std::array<qsizetype, mostDigits> place{};
    int count = 0;
};

bool isLuhnValid(const Digits& digits) {
    int sum = 0;
    for (int i = 0; i < digits.count; ++i) {
        const bool isDoubled = (digits.count - i) % 2 == 0;
        const int value = digits.value[size_t(i)] * (isDoubled ? 2 : 1);
        sum += value > 9 ? value - 9 : value;
    }
    return sum % 10 == 0;
}

/// Thirteen digits may also be an article number, which is far more common than such a card.
bool isArticleNumber(const Digits& digits) {
    int sum = 0;
    for (int i = 0; i < digits.count; ++i)
        sum += digits.value[size_t(i)] * (i % 2 == 0 ? 1 : 3);
    return digits.count == 13 && sum % 10 == 0;
}

bool hasIssuer(const Digits& digits) {
    int beginning = 0;
    for (size_t i = 0; i < 6; ++i)
        beginning = beginning * 10 + digits.value[i];
    return std::ranges::any_of(issuers, [&](const Issuer& issuer) {
        return beginning >= issuer.from && beginning <= issuer.to &&
               (issuer.lengths >> digits.count & 1) != 0;
    });
}

bool isMonotonous(const Digits& digits) {
    const auto end = digits.value.begin() + digits.count;
    return std::count(digits.value.begin() + 1, end, digits.value[1]) == digits.count - 1 &&
           digits.value[1] == 0;
}

bool isSeparator(QChar unit) {
    return unit == u' ' || unit == u'-' || unit == QChar(0xA0) || unit == QChar(0x202F);
}

bool isDigit(QChar unit) {
    return hasBit(unit, digitBit);
}

/// Reads groups; says by a count beyond the most that there are too many for a card.
Groups groupsAt(QStringView text, qsizetype start) {
    Groups groups;
    QChar separator;
    for (qsizetype at = start;;) {
        const qsizetype end = endOfBits(text, at, digitBit);
        if (groups.count < mostGroups)
            groups.at[size_t(groups.count)] = {at, int(qMin(end - at, qsizetype(99)))};
        ++groups.count;
        groups.end = end;
        const QChar next = unitAt(text, end);
        const bool goesOn = isSeparator(next) && (separator.isNull() || next == separator) &&
                            isDigit(unitAt(text, end + 1));
        if (!goesOn)
            return groups;
        separator = next;
        at = end + 1;
    }
}

Digits digitsOf(QStringView text, const Groups& groups, int first, int last) {
    Digits digits;
    for (int i = first; i <= last; ++i) {
        const auto& group = groups.at[size_t(i)];
        for (qsizetype at = group.start; at < group.start + group.size; ++at) {
            if (digits.count == mostDigits)
                return {};
            digits.value[size_t(digits.count)] = text[at].digitValue();
            digits.place[size_t(digits.count++)] = at;
        }
    }
    return digits;
}

/// Cards print four digits first, then groups of three to six; or all in one.
bool isCardGrouping(const Groups& groups, int first, int last) {
    if (first == last)
        return true;
    if (last - first == 1)
        return (groups.at[size_t(first)].size == 6 || groups.at[size_t(first)].size == 8) &&
               groups.at[size_t(last)].size >= 8;
    if (groups.at[size_t(first)].size != 4)
        return false;
    for (int i = first + 1; i < last; ++i)
        if (groups.at[size_t(i)].size < 3 || groups.at[size_t(i)].size > 6)
            return false;
    return groups.at[size_t(last)].size <= 6;
}

/// Groups that count up are a list of numbers.
bool counts(QStringView text, const Groups& groups, int first, int last) {
    const auto number = [&](int index) {
        const auto& group = groups.at[size_t(index)];
        return text.mid(group.start, group.size).toInt();
    };
    for (int i = first; i < last; ++i)
        if (number(i) + 1 == number(i + 1))
            return true;
    return false;
}

std::optional<SecretRange> cardIn(QStringView text, const Groups& groups, int first, int last) {
    if (!isCardGrouping(groups, first, last) || counts(text, groups, first, last))
        return {};
    const Digits digits = digitsOf(text, groups, first, last);
    if (digits.count < leastDigits || !hasIssuer(digits) || !isLuhnValid(digits) ||
        isArticleNumber(digits) || isMonotonous(digits))
        return {};
    const qsizetype start = digits.place[0];
    return SecretRange{start, digits.place[size_t(digits.count - 5)] + 1 - start};
}

/// A card may have a counter before it, and a security code or a month behind it.
std::optional<SecretRange> cardAmong(QStringView text, const Groups& groups) {
    for (int first = 0; first < groups.count; ++first)
        for (int last = groups.count - 1; last >= first; --last)
            if (const auto card = cardIn(text, groups, first, last))
                return card;
    return {};
}

constexpr QStringView otherNumbers[] = {
    u"order",   u"imei",     u"tracking", u"invoice",  u"isbn",  u"ean",     u"upc",
    u"gtin",    u"sku",      u"serial",   u"time",     u"stamp", u"barcode", u"sendung",
    u"bestell", u"rechnung", u"pedido",   u"commande", u"iccid", u"ticket",  u"article",
};

/// A word on the left that says it is a number of another kind.
bool isNamedOtherwise(QStringView text, qsizetype start) {
    constexpr qsizetype reach = 24;
    const qsizetype from = qMax(qsizetype(0), start - reach);
    QStringView before = text.mid(from, start - from);
    before = before.mid(before.lastIndexOf(u'\n') + 1);
    return std::ranges::any_of(otherNumbers, [before](QStringView word) {
        return before.contains(word, Qt::CaseInsensitive);
    });
}

/// Part of a longer number, a decimal fraction, a name or a path.
bool isInsideSomething(QStringView text, qsizetype start, qsizetype end) {
    const QChar before = unitAt(text, start - 1);
    const QChar after = unitAt(text, end);
    const bool isBound = isLetter(before) || before == u'_' || before == u'.' || before == u'/' ||
                         before == u'+' || (before == u'-' && start > 1 && text[start - 2] != u' ');
    const bool isFraction = after == u'.' && isDigit(unitAt(text, end + 1));
    return isBound || isFraction || isAsciiLetter(after) || after == u'_';
}

} // namespace

CardReading cardNumberAt(QStringView text, qsizetype start) {
    const Groups groups = groupsAt(text, start);
    const qsizetype length = groups.end - start;
    if (groups.count > mostGroups || length < leastDigits ||
        isInsideSomething(text, start, groups.end))
        return {{}, groups.end};
    const auto card = cardAmong(text, groups);
    if (!card || isNamedOtherwise(text, card->start))
        return {{}, groups.end};
    return {card, groups.end};
}

} // namespace quorvel
