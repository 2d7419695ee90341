#include "foundation/Log.h"

#include <QDebug>

namespace quorvel {

void logLine(const QString& line) {
    qInfo("%s", qUtf8Printable(line));
}

} // namespace quorvel
