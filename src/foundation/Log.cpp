#include "foundation/Log.h"

#include <QDebug>
#include <QLoggingCategory>

namespace quorvel {

namespace {
Q_LOGGING_CATEGORY(detail, "quorvel.detail", QtInfoMsg)
} // namespace

void logLine(const QString& line) {
    qInfo("%s", qUtf8Printable(line));
}

void logDetail(const QString& line) {
    qCDebug(detail, "%s", qUtf8Printable(line));
}

} // namespace quorvel
