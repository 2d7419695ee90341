#include "smart/masking/MarkupGaps.h"

#include "smart/masking/CharacterBits.h"
#include "smart/masking/GapWords.h"

#include <algorithm>

namespace quorvel {

std::optional<Gap> attributeGap(QStringView text, const Label& label) {
    constexpr qsizetype reach = 120;
    const QChar quote = unitAt(text, label.end);
    const bool isAttribute = (quote == u'"' || quote == u'\'') &&
                             unitAt(text, label.start - 1) == quote &&
                             unitAt(text, label.start - 2) == u'=';
    if (!isAttribute)
        return {};
    const QStringView rest = text.mid(label.end + 1, reach);
    const qsizetype close = rest.indexOf(u'>');
    const QStringView attributes = rest.left(close < 0 ? rest.size() : close);
    for (const QStringView name : {QStringView(u" value="), QStringView(u" content=")}) {
        const qsizetype at = attributes.indexOf(name, 0, Qt::CaseInsensitive);
        if (at >= 0)
            return Gap{Separator::equals, true, label.end + 1 + at + name.size()};
    }
    const bool isElement = close >= 0 && !attributes.endsWith(u'/') && !attributes.contains(u'<') &&
                           bitsOf(unitAt(rest, close + 1)) != 0;
    return isElement ? std::optional(Gap{Separator::tag, true, label.end + close + 2})
                     : std::nullopt;
}

std::optional<Gap> nextElementGap(QStringView text, qsizetype at) {
    constexpr qsizetype reach = 40;
    if (text.mid(at, 2) != u"</")
        return {};
    const QStringView rest = text.mid(at, reach);
    const qsizetype close = rest.indexOf(u'>');
    const bool isKnown = close > 0 && std::ranges::any_of(labelElements, [&](QStringView name) {
                             return rest.mid(2, close - 2).compare(name, Qt::CaseInsensitive) == 0;
                         });
    if (!isKnown)
        return {};
    const qsizetype next = endOfBits(text.left(at + close + reach), at + close + 1, blankBit);
    if (unitAt(text, next) != u'<')
        return Gap{Separator::colon, false, next};
    const qsizetype open = text.mid(next, reach).indexOf(u'>');
    if (open < 0 || text[next + open - 1] == u'/' || unitAt(text, next + 1) == u'/')
        return {};
    return Gap{Separator::tag, true, next + open + 1};
}

std::optional<Gap> argumentGap(QStringView text, const Label& label) {
    const auto isQuoteAt = [text](qsizetype at) {
        return unitAt(text, at) == u'"' || unitAt(text, at) == u'\'';
    };
    const QStringView name = text.mid(label.start, label.end - label.start);
    const bool isSetter = name.startsWith(u"set", Qt::CaseInsensitive) ||
                          name.startsWith(u"with", Qt::CaseInsensitive);
    if (isSetter && unitAt(text, label.end) == u'(' && isQuoteAt(label.end + 1))
        return Gap{Separator::comma, false, label.end + 1};
    if (!isQuoteAt(label.end) || unitAt(text, label.end) != unitAt(text, label.start - 1))
        return {};
    qsizetype before = label.start - 2;
    while (bitsOf(unitAt(text, before)) == blankBit && before > label.start - 4)
        --before;
    const qsizetype comma = afterBlanks(text, label.end + 1);
    const qsizetype value = afterBlanks(text, comma + 1);
    if (unitAt(text, before) != u'(' || unitAt(text, comma) != u',' || !isQuoteAt(value))
        return {};
    return Gap{Separator::comma, false, value};
}

} // namespace quorvel
