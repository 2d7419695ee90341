#include "smart/masking/Headers.h"

#include "smart/masking/CharacterBits.h"
#include "smart/masking/RunShape.h"

#include <algorithm>

namespace quorvel {

namespace {

constexpr QStringView schemes[] = {
    u"bearer", u"basic", u"token", u"apikey",   u"api-key",   u"bot",  u"oauth",
    u"key",    u"jwt",   u"ssws",  u"geniekey", u"negotiate", u"ntlm", u"klaviyo-api-key",
    u"splunk",
};

constexpr QStringView sessionNames[] = {
    u"sess", u"sid", u"auth", u"token", u"jwt", u"csrf", u"xsrf", u"login", u"remember", u"secret",
};

qsizetype afterHeaderMarks(QStringView text, qsizetype at) {
    constexpr qsizetype most = 8;
    const qsizetype limit = qMin(text.size(), at + most);
    while (at < limit && QStringView(u" \t\"':=,>\\`").contains(text[at]))
        ++at;
    return at;
}

qsizetype endOfCredentials(QStringView text, qsizetype at) {
    constexpr qsizetype longest = 8000;
    const qsizetype limit = qMin(text.size(), at + longest);
    while (at < limit && !hasBit(text[at], blankBit) &&
           !QStringView(u"\"'`,;<>\\)}").contains(text[at]))
        ++at;
    return at;
}

/// Words and templates stand here in examples.
bool isCredential(QStringView value, bool hasScheme) {
    const RunShape shape = shapeOf(value);
    if (value.startsWith(u'$') || value.startsWith(u'{') || value.contains(u"...") ||
        value.contains(u"://") || value.contains(u'(') ||
        value.contains(u"xxxx", Qt::CaseInsensitive))
        return false;
    const bool isMixed = shape.digits > 0 || value.endsWith(u'=') ||
                         (shape.lower > 2 && shape.upper > 2 && shape.changeRate() >= 20);
    return isMixed && shape.letters() > 0 && shape.distinct >= 4 &&
           shape.size >= (hasScheme ? 6 : 16);
}

bool isSessionCookie(QStringView name, QStringView value) {
    const RunShape shape = shapeOf(value);
    if (value.startsWith(u'$') || value.startsWith(u'{') || value.startsWith(u'<'))
        return false;
    const bool isNamed = std::ranges::any_of(sessionNames, [name](QStringView stem) {
        return name.contains(stem, Qt::CaseInsensitive);
    });
    const bool isRandom = shape.size >= 16 && shape.digits >= 2 && looksGenerated(shape);
    return (isNamed && shape.size >= 6 && (shape.digits > 0 || shape.size >= 16)) || isRandom;
}

qsizetype endOfCookieValue(QStringView text, qsizetype at) {
    while (at < text.size() && !hasBit(text[at], blankBit) &&
           !QStringView(u";\"'`,").contains(text[at]))
        ++at;
    return at;
}

} // namespace

std::optional<SecretRange> authorizationAt(QStringView text, qsizetype start) {
    const qsizetype at = afterHeaderMarks(text, start);
    const auto isMark = [](QChar unit) { return !hasBit(unit, blankBit); };
    if (std::ranges::none_of(text.mid(start, at - start), isMark))
        return {};
    const qsizetype wordEnd = endOfBits(text.left(at + 24), at, lowerBit | upperBit);
    const QStringView word = text.mid(at, wordEnd - at);
    const bool hasScheme = bitsOf(unitAt(text, wordEnd)) == blankBit &&
                           std::ranges::any_of(schemes, [word](QStringView scheme) {
                               return word.compare(scheme, Qt::CaseInsensitive) == 0;
                           });
    const qsizetype value = hasScheme ? afterBlanks(text, wordEnd) : at;
    const qsizetype end = endOfCredentials(text, value);
    // A parameter with a quoted value of its own.
    if (unitAt(text, end - 1) == u'=' && unitAt(text, end) == u'"')
        return {};
    if (end == value || !isCredential(text.mid(value, end - value), hasScheme))
        return {};
    return SecretRange{value, end - value};
}

QList<SecretRange> cookiesAt(QStringView text, qsizetype start) {
    QList<SecretRange> ranges;
    qsizetype at = afterHeaderMarks(text, start);
    if (at == start)
        return ranges;
    for (;;) {

        qsizetype equals = at;
        while (unitAt(text, equals) == u'-' || unitAt(text, equals) == u'.' ||
               hasBit(unitAt(text, equals), wordBit))
            ++equals;
        if (equals == at || unitAt(text, equals) != u'=')
            return ranges;
        const qsizetype valueEnd = endOfCookieValue(text, equals + 1);
        if (isSessionCookie(text.mid(at, equals - at), text.mid(equals + 1, valueEnd - equals - 1)))
            ranges.append({equals + 1, valueEnd - equals - 1});
        if (unitAt(text, valueEnd) != u';')
            return ranges;
        at = afterBlanks(text, valueEnd + 1);
    }
}

} // namespace quorvel
