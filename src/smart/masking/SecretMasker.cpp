#include "smart/masking/SecretMasker.h"

namespace quorvel {

QList<SecretRange> secretsIn(QStringView) {
    return {};
}

QString maskedSecrets(const QString& text) {
    return text;
}

} // namespace quorvel
