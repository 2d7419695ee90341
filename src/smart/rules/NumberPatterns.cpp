#include "smart/rules/NumberPatterns.h"

#include "smart/rules/Runs.h"

#include <algorithm>
#include <array>

namespace quorvel {

namespace {

constexpr int fewestCardDigits = 13;
constexpr int mostCardDigits = 19;

bool isCardSeparator(QChar c) {
    return c == u' ' || c == u'-';
}

bool passesLuhn(QStringView digits) {
    int sum = 0;
    bool isDoubled = digits.size() % 2 == 0;
    for (const QChar digit : digits) {
        const int value = digit.digitValue();
        const int doubled = value > 4 ? value * 2 - 9 : value * 2;
        sum += isDoubled ? doubled : value;
        isDoubled = !isDoubled;
    }
    return sum % 10 == 0;
}

/// The digits of a number that begins at one place, each with at most one separator behind it.
class DigitGroups {
public:
    DigitGroups(QStringView text, qsizetype start)
        : m_text(text) {
        qsizetype position = start;
        while (m_count < mostCardDigits && position < text.size() &&
               isDecimalDigit(text[position])) {
            m_digits[m_count] = text[position];
            m_ends[m_count++] = ++position;
            if (position < text.size() && isCardSeparator(text[position]))
                ++position;
        }
    }

    /// The most digits, at least as many as a card has, that end at a word boundary; where they
    /// end is put into `end`. Empty when there are none.
    QStringView longest(qsizetype& end) const {
        for (int count = m_count; count >= fewestCardDigits; --count) {
            const qsizetype afterDigit = m_ends[count - 1];
            const bool isSeparated =
                afterDigit < m_text.size() && isCardSeparator(m_text[afterDigit]);
            end = afterDigit + (isSeparated ? 1 : 0);
            if (isSeparated && isWordBoundary(m_text, end))
                return {m_digits.data(), count};
            end = afterDigit;
            if (isWordBoundary(m_text, end))
                return {m_digits.data(), count};
        }
        return {};
    }

private:
    QStringView m_text;
    std::array<QChar, mostCardDigits> m_digits;
    std::array<qsizetype, mostCardDigits> m_ends;
    int m_count = 0;
};

struct DigitsAndSeparators {
    static bool isPlainly(char16_t unit) {
        return Digits::isPlainly(unit) | (unit == u' ') | (unit == u'-');
    }
    static bool contains(char16_t unit) { return isPlainly(unit) || Digits::contains(unit); }
};

qsizetype nextDigit(QStringView text, qsizetype position, qsizetype end) {
    while (position < end && !isDecimalDigit(text[position]))
        ++position;
    return position;
}

qsizetype endOfDigits(QStringView text, qsizetype start) {
    return endOfRun<Digits>(text, start);
}

/// 25[0-5] | 2[0-4]\d | 1\d\d | [1-9]?\d
bool isOctet(QStringView digits) {
    switch (digits.size()) {
    case 1:
        return true;
    case 2:
        return digits[0] >= u'1' && digits[0] <= u'9';
    case 3:
        return digits[0] == u'1' || (digits[0] == u'2' && digits[1] >= u'0' && digits[1] <= u'4') ||
               (digits[0] == u'2' && digits[1] == u'5' && digits[2] >= u'0' && digits[2] <= u'5');
    default:
        return false;
    }
}

/// Whether four octets begin at `start`.
bool areOctets(QStringView text, qsizetype start) {
    constexpr int octets = 4;
    for (int i = 0; i < octets; ++i) {
        const qsizetype end = endOfDigits(text.first(std::min(text.size(), start + 4)), start);
        if (!isOctet(text.sliced(start, end - start)))
            return false;
        if (i == octets - 1)
            return isWordBoundary(text, end);
        if (end >= text.size() || text[end] != u'.')
            return false;
        start = end + 1;
    }
    return false;
}

bool areHexDigits(QStringView text) {
    return std::all_of(text.begin(), text.end(), isAsciiHexDigit);
}

constexpr qsizetype uuidUnits = 36;

bool isUUIDAt(QStringView text, qsizetype start) {
    constexpr std::array<qsizetype, 5> groups{8, 4, 4, 4, 12};
    qsizetype position = start;
    for (const qsizetype digits : groups) {
        if (position != start && text[position++] != u'-')
            return false;
        if (!areHexDigits(text.sliced(position, digits)))
            return false;
        position += digits;
    }
    return isWordBoundary(text, start) && isWordBoundary(text, position);
}

constexpr qsizetype ibanHead = 4;
constexpr qsizetype fewestIBANUnits = ibanHead + 10;
constexpr qsizetype mostIBANUnits = ibanHead + 30;

bool isIBAN(QStringView run) {
    return run.size() >= fewestIBANUnits && run.size() <= mostIBANUnits && isAsciiLetter(run[0]) &&
           isAsciiLetter(run[1]) && isDecimalDigit(run[2]) && isDecimalDigit(run[3]) &&
           std::all_of(run.begin() + ibanHead, run.end(),
                       [](QChar c) { return isAsciiDigit(c) || isAsciiLetter(c); });
}

/// The digits of the first valid card number that begins between `position` and `end`.
QString cardDigitsBetween(QStringView text, qsizetype position, qsizetype end) {
    for (position = nextDigit(text, position, end); position < end;
         position = nextDigit(text, position, end)) {
        if (!isWordBoundary(text, position)) {
            position = endOfDigits(text, position);
            continue;
        }
        const DigitGroups groups(text, position);
        qsizetype groupsEnd = 0;
        const QStringView digits = groups.longest(groupsEnd);
        if (!digits.isEmpty() && passesLuhn(digits))
            return digits.toString();
        position = digits.isEmpty() ? endOfDigits(text, position) : groupsEnd;
    }
    return {};
}

} // namespace

QString cardDigits(QStringView text) {
    QString found;
    anyRun<DigitsAndSeparators>(text, fewestCardDigits, [&](qsizetype start, qsizetype end) {
        found = cardDigitsBetween(text, start, end);
        return !found.isEmpty();
    });
    return found;
}

bool hasIBANCandidate(QStringView text) {
    return anyRun<LettersAndDigits>(text, fewestIBANUnits, [&](qsizetype start, qsizetype end) {
        return isIBAN(text.sliced(start, end - start)) && isWordBoundary(text, start) &&
               isWordBoundary(text, end);
    });
}

bool hasIPv4Candidate(QStringView text) {
    constexpr qsizetype mostOctetDigits = 3;
    for (qsizetype dot = text.indexOf(u'.'); dot >= 0; dot = text.indexOf(u'.', dot + 1)) {
        qsizetype start = dot;
        while (start > 0 && dot - start <= mostOctetDigits && isDecimalDigit(text[start - 1]))
            --start;
        if (start < dot && isWordBoundary(text, start) && areOctets(text, start))
            return true;
    }
    return false;
}

bool hasUUID(QStringView text, const std::function<bool(qsizetype, qsizetype)>& isAllowed) {
    constexpr qsizetype firstGroup = 8;
    for (qsizetype hyphen = text.indexOf(u'-', firstGroup); hyphen >= 0;
         hyphen = text.indexOf(u'-', hyphen + 1)) {
        const qsizetype start = hyphen - firstGroup;
        if (start + uuidUnits > text.size())
            return false;
        if (isUUIDAt(text, start) && isAllowed(start, start + uuidUnits))
            return true;
    }
    return false;
}

} // namespace quorvel
