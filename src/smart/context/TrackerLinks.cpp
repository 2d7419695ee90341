#include "smart/context/TrackerLinks.h"

#include <QStringBuilder>

namespace quorvel {

namespace {

/// The base without what does not belong into a link; invalid when it is none of the web.
QUrl cleanBase(const QString& text) {
    QUrl base(text.trimmed());
    const bool isOfWeb =
        base.scheme() == QLatin1String("http") || base.scheme() == QLatin1String("https");
    if (!base.isValid() || !isOfWeb || base.host().isEmpty())
        return {};
    base.setUserInfo({});
    base.setQuery(QString());
    base.setFragment({});
    QString path = base.path(QUrl::FullyEncoded);
    while (path.endsWith(u'/'))
        path.chop(1);
    base.setPath(path, QUrl::StrictMode);
    return base;
}

bool endsWith(const QUrl& base, const char* end) {
    return base.path(QUrl::FullyEncoded).endsWith(QLatin1String(end), Qt::CaseInsensitive);
}

/// What stands between a base and the reference.
using Middle = QString (*)(const QUrl& base);

QString issueMiddle(const QUrl& base) {
    return endsWith(base, "/browse") ? QStringLiteral("/") : QStringLiteral("/browse/");
}

QString pullRequestMiddle(const QUrl& base) {
    if (endsWith(base, "/pull") || endsWith(base, "/-/merge_requests"))
        return QStringLiteral("/");
    return base.host().contains(QLatin1String("gitlab"), Qt::CaseInsensitive)
               ? QStringLiteral("/-/merge_requests/")
               : QStringLiteral("/pull/");
}

QList<QUrl> links(const QStringList& bases, const QString& reference, Middle middle) {
    QList<QUrl> found;
    for (const QString& text : bases) {
        QUrl link = cleanBase(text);
        if (!link.isValid())
            continue;
        link.setPath(link.path(QUrl::FullyEncoded) % middle(link) % reference, QUrl::StrictMode);
        if (!found.contains(link) && found.size() < mostTrackerLinks)
            found.append(link);
    }
    return found;
}

} // namespace

QList<QUrl> issueLinks(const QStringList& bases, const QString& key) {
    return links(bases, key, issueMiddle);
}

QList<QUrl> pullRequestLinks(const QStringList& bases, const QString& number) {
    return links(bases, number, pullRequestMiddle);
}

} // namespace quorvel
