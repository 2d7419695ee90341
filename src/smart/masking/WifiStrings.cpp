#include "smart/masking/WifiStrings.h"

#include "smart/masking/CharacterBits.h"

namespace quorvel {

namespace {

constexpr qsizetype longest = 400;

/// The end of a field; a backslash keeps the unit behind it.
qsizetype endOfField(QStringView text, qsizetype at, qsizetype limit) {
    while (at < limit && text[at] != u';' && !hasBit(text[at], lineEndBit))
        at += text[at] == u'\\' ? 2 : 1;
    return qMin(at, limit);
}

} // namespace

std::optional<SecretRange> wifiPasswordAt(QStringView text, qsizetype start) {
    const qsizetype limit = qMin(text.size(), start + longest);
    if (unitAt(text, start) != u':')
        return {};
    for (qsizetype at = start + 1; at < limit;) {
        const qsizetype end = endOfField(text, at, limit);
        const QStringView field = text.mid(at, end - at);
        if (field.size() > 2 && field.startsWith(u"P:"))
            return SecretRange{at + 2, end - at - 2};
        if (unitAt(text, end) != u';' || field.isEmpty())
            return {};
        at = end + 1;
    }
    return {};
}

} // namespace quorvel
