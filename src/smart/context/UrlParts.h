#pragma once

#include <QList>
#include <QString>

#include <utility>

class QUrl;

namespace quorvel {

/// The link. A percent sign that encodes nothing stands for itself and leaves the others alone.
QUrl urlFromLink(const QString& link);

/// The host of a link, in small letters and, when it is written in `written` in another script than
/// the basic Latin one, in that script. Empty for a link that has none.
QString hostAsWritten(const QUrl& url, const QString& written);

/// The last part of the path that is not empty, decoded. Empty for a link without a host.
QString lastPathSegment(const QUrl& url);

/// Names and values of the query as they stand there, in their order.
QList<std::pair<QString, QString>> encodedQueryParameters(const QUrl& url);

/// A name or a value out of a query, with percent signs and plus signs taken for what they stand
/// for. What is not UTF-8 stays as it is.
QString decodedQueryText(const QString& encoded);

} // namespace quorvel
