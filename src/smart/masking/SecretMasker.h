#pragma once

#include <QList>
#include <QString>

namespace quorvel {

/// A part of a text that must not be shown, in UTF-16 units.
struct SecretRange {
    qsizetype start = 0;
    qsizetype length = 0;

    qsizetype end() const { return start + length; }
};

/// The secrets in a text, by start; no two overlap. Takes time in proportion to the text.
QList<SecretRange> secretsIn(QStringView text);

/// What stands for each secret.
inline constexpr QStringView secretMask = u"••••••";

/// The text as it may be shown in titles, tooltips and searches; equal to the text when it holds no
/// secret.
QString maskedSecrets(const QString& text);

} // namespace quorvel
