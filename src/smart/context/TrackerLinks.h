#pragma once

#include <QStringList>
#include <QUrl>

namespace quorvel {

/// Links to issues and pull requests, made of the base addresses of trackers and a reference. One
/// link for each base of the web (http, https), in their order and no link twice; other bases count
/// as none. What a base has of a query, a fragment, a user name or a password is left out: links
/// are given to other people.

/// "<base>/browse/PROJ-42"
QList<QUrl> issueLinks(const QStringList& bases, const QString& key);

/// "<base>/pull/12", or "<base>/-/merge_requests/12" where that is the custom of the host.
QList<QUrl> pullRequestLinks(const QStringList& bases, const QString& number);

inline constexpr qsizetype mostTrackerLinks = 5;

} // namespace quorvel
