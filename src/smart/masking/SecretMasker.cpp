#include "smart/masking/SecretMasker.h"

#include "smart/masking/SecretScanner.h"

#include <algorithm>

namespace quorvel {

namespace {

/// By start, those that touch or overlap made one.
QList<SecretRange> joined(QList<SecretRange> ranges) {
    std::ranges::sort(ranges, {}, &SecretRange::start);
    QList<SecretRange> result;
    for (const SecretRange& range : std::as_const(ranges)) {
        if (result.isEmpty() || range.start > result.last().end()) {
            result.append(range);
            continue;
        }
        SecretRange& last = result.last();
        last.length = qMax(last.end(), range.end()) - last.start;
    }
    return result;
}

} // namespace

QList<SecretRange> secretsIn(QStringView text) {
    QList<SecretRange> found = SecretScanner(text).scan();
    return found.size() > 1 ? joined(std::move(found)) : found;
}

QString maskedSecrets(const QString& text) {
    const QList<SecretRange> ranges = secretsIn(text);
    if (ranges.isEmpty())
        return text;
    QString masked;
    masked.reserve(text.size());
    qsizetype shown = 0;
    for (const SecretRange& range : ranges) {
        masked += QStringView(text).mid(shown, range.start - shown);
        masked += secretMask;
        shown = range.end();
    }
    masked += QStringView(text).mid(shown);
    return masked;
}

} // namespace quorvel
