#include "ui/SchemeHandlers.h"

#include <QFile>
#include <QStandardPaths>
#include <QStringList>

#include <algorithm>

namespace quorvel {

namespace {

/// Where the desktop notes which program takes what (freedesktop.org's "MIME associations").
QStringList associationFiles() {
    QStringList files;
    for (const QString& folder :
         QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation))
        files += folder + QStringLiteral("/mimeapps.list");
    for (const QString& folder :
         QStandardPaths::standardLocations(QStandardPaths::ApplicationsLocation))
        for (const char* name : {"mimeapps.list", "defaults.list", "mimeinfo.cache"})
            files += folder + u'/' + QLatin1String(name);
    return files;
}

bool names(const QString& path, const QByteArray& kind) {
    constexpr qint64 longestLine = 64 * 1024;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    bool isAssociated = false;
    while (!file.atEnd()) {
        const QByteArray line = file.readLine(longestLine).trimmed();
        if (line.startsWith('['))
            isAssociated = !line.startsWith("[Removed");
        if (isAssociated && line.startsWith(kind + '=') && line.size() > kind.size() + 1)
            return true;
    }
    return false;
}

} // namespace

bool hasSchemeHandler(const QString& scheme) {
    const QByteArray kind = "x-scheme-handler/" + scheme.toLatin1();
    const QStringList files = associationFiles();
    return std::any_of(files.begin(), files.end(),
                       [&](const QString& file) { return names(file, kind); });
}

} // namespace quorvel
