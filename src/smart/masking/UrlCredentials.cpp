#include "smart/masking/UrlCredentials.h"

#include "smart/masking/CharacterBits.h"
#include "smart/masking/PlaceholderWords.h"
#include "smart/masking/RunShape.h"
#include "smart/masking/TokenForms.h"

namespace quorvel {

namespace {

constexpr qsizetype longestAuthority = 600;

bool endsAuthority(QChar unit) {
    return hasBit(unit, blankBit) || unit == u'/' || unit == u'"' || unit == u'\'' ||
           unit == u'<' || unit == u'>' || unit == u'`' || unit == u'?' || unit.isNull();
}

bool isTemplate(QStringView password) {
    return isPlaceholderWord(password) || password.startsWith(u'$') || password.startsWith(u'{') ||
           password.startsWith(u'<') || password.contains(u'[') || password.contains(u']') ||
           password.startsWith(u'%') || password.contains(u"***") || password.contains(u'{') ||
           password.startsWith(u"xxx", Qt::CaseInsensitive) ||
           password.startsWith(u"your", Qt::CaseInsensitive) || password.contains(u'\u2022') ||
           password.contains(u"...") || password.contains(u'(');
}

/// A token instead of a name and a password.
std::optional<SecretRange> loneToken(QStringView text, qsizetype start, qsizetype end) {
    constexpr qsizetype least = 20;
    const RunShape shape = shapeOf(text.mid(start, end - start));
    if (end - start < least || shape.digits < 3 || shape.symbols > 2 || !looksGenerated(shape))
        return {};
    if (mayBeginServiceToken(text, start))
        if (const auto token = serviceTokenAt(text, start))
            return token;
    return hiddenPart(start, end, 0);
}

} // namespace

std::optional<SecretRange> urlPasswordAt(QStringView text, qsizetype start) {
    const qsizetype limit = qMin(text.size(), start + longestAuthority);
    qsizetype sign = -1;
    qsizetype colon = -1;
    for (qsizetype at = start; at < limit && !endsAuthority(text[at]); ++at) {
        if (text[at] == u'@')
            sign = at;
        else if (text[at] == u':' && colon < 0)
            colon = at;
    }
    if (unitAt(text, start) == u'[' || sign < 0 || sign + 1 >= text.size() ||
        endsAuthority(text[sign + 1]))
        return {};
    if (colon < 0 || colon > sign)
        return loneToken(text, start, sign);
    const QStringView password = text.mid(colon + 1, sign - colon - 1);
    if (password.isEmpty() || isTemplate(password))
        return {};
    return SecretRange{colon + 1, password.size()};
}

qsizetype endOfUrl(QStringView text, qsizetype start) {
    while (start < text.size() && !hasBit(text[start], blankBit) && text[start] != u'"' &&
           text[start] != u'\'' && text[start] != u'<' && text[start] != u'>' &&
           text[start] != u'`')
        ++start;
    return start;
}

} // namespace quorvel
