#include "smart/context/UrlParts.h"

#include "smart/rules/Characters.h"

#include <QStringDecoder>
#include <QUrl>

namespace quorvel {

namespace {

/// The text itself when it does not decode to UTF-8.
QString decoded(const QString& encoded) {
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder(QByteArray::fromPercentEncoding(encoded.toUtf8()));
    return decoder.hasError() ? encoded : text;
}

bool encodesAt(QStringView link, qsizetype percent) {
    return percent + 2 < link.size() && isAsciiHexDigit(link[percent + 1]) &&
           isAsciiHexDigit(link[percent + 2]);
}

} // namespace

QUrl urlFromLink(const QString& link) {
    QString repaired;
    repaired.reserve(link.size());
    for (qsizetype i = 0; i < link.size(); ++i) {
        repaired += link[i];
        if (link[i] == u'%' && !encodesAt(link, i))
            repaired += QStringLiteral("25");
    }
    return QUrl(repaired);
}

QString hostAsWritten(const QUrl& url, const QString& written) {
    const QString encoded = url.host(QUrl::FullyEncoded);
    const QString readable = QUrl::fromAce(encoded.toLatin1(), QUrl::IgnoreIDNWhitelist);
    const bool isReadable =
        !readable.isEmpty() && readable != encoded; // an address has no other form
    return isReadable && written.contains(readable, Qt::CaseInsensitive) ? readable : encoded;
}

QString lastPathSegment(const QUrl& url) {
    if (url.host().isEmpty())
        return {};
    const QString path = url.path(QUrl::FullyEncoded);
    return decoded(path.section(u'/', -1, -1, QString::SectionSkipEmpty));
}

QList<std::pair<QString, QString>> encodedQueryParameters(const QUrl& url) {
    QList<std::pair<QString, QString>> parameters;
    const QString query = url.query(QUrl::FullyEncoded);
    for (const QStringView pair : QStringView(query).tokenize(u'&', Qt::SkipEmptyParts)) {
        const qsizetype equals = pair.indexOf(u'=');
        const QStringView name = equals < 0 ? pair : pair.first(equals);
        const QStringView value = equals < 0 ? QStringView() : pair.sliced(equals + 1);
        parameters.append({name.toString(), value.toString()});
    }
    return parameters;
}

QString decodedQueryText(const QString& encoded) {
    QString text = encoded;
    return decoded(text.replace(u'+', u' '));
}

} // namespace quorvel
