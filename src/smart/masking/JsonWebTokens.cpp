#include "smart/masking/JsonWebTokens.h"

#include "smart/masking/CharacterBits.h"
#include "smart/masking/TokenForms.h"

#include <QByteArray>

namespace quorvel {

namespace {

constexpr QStringView beginning = u"eyJ";
constexpr qsizetype longestHeader = 2000;

bool isUrlBase64(QChar unit) {
    return isAsciiAlphanumeric(unit) || unit == u'-' || unit == u'_' || unit == u'=';
}

qsizetype endOfPart(QStringView text, qsizetype start) {
    while (start < text.size() && isUrlBase64(text[start]))
        ++start;
    return start;
}

bool isHeader(QStringView part) {
    if (part.size() > longestHeader)
        return false;
    const QByteArray json =
        QByteArray::fromBase64(part.toLatin1(), QByteArray::Base64UrlEncoding).trimmed();
    return json.startsWith('{') && json.contains("\":") &&
           (json.endsWith('}') || json.contains("\"alg\"") || json.contains("\"typ\""));
}

} // namespace

std::optional<SecretRange> jsonWebTokenAt(QStringView text, qsizetype start) {
    constexpr qsizetype leastPayload = 10;
    if (text.mid(start, beginning.size()) != beginning)
        return {};
    const qsizetype headerEnd = endOfPart(text.left(start + longestHeader + 1), start);
    if (unitAt(text, headerEnd) != u'.' || !isHeader(text.mid(start, headerEnd - start)))
        return {};
    qsizetype end = endOfPart(text, headerEnd + 1);
    if (end - headerEnd < leastPayload && unitAt(text, end) != u'.')
        return {};
    constexpr int mostParts = 5;
    for (int part = 2; part < mostParts && unitAt(text, end) == u'.'; ++part)
        end = endOfPart(text, end + 1);
    return hiddenPart(start, end, beginning.size());
}

} // namespace quorvel
