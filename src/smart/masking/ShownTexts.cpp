#include "smart/masking/ShownTexts.h"

#include "smart/masking/SecretMasker.h"

namespace quorvel {

namespace {

/// Far more than a history holds; beyond, everything is worked out anew.
constexpr qsizetype mostRemembered = 4096;

bool isLong(const QString& text) {
    return text.size() > ShownTexts::headUnits + ShownTexts::tailUnits;
}

QString maskedEnds(const QString& text) {
    return maskedSecrets(text.left(ShownTexts::headUnits)) + QStringLiteral("\n…\n") +
           maskedSecrets(text.right(ShownTexts::tailUnits));
}

} // namespace

QString ShownTexts::shown(const QUuid& id, const QString& text) const {
    const auto known = m_masked.constFind(id);
    if (known != m_masked.constEnd())
        return known->isEmpty() ? text : *known;
    const QString masked = worked(text);
    if (m_masked.size() >= mostRemembered)
        m_masked.clear();
    m_masked.insert(id, masked == text ? QString() : masked);
    return masked;
}

QString ShownTexts::worked(const QString& text) {
    return isLong(text) ? maskedEnds(text) : maskedSecrets(text);
}

} // namespace quorvel
