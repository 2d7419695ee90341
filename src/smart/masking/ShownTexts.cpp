#include "smart/masking/ShownTexts.h"

#include "smart/masking/SecretMasker.h"

namespace quorvel {

namespace {

/// Far more than a history and a library of snippets hold; beyond, everything is worked out anew.
constexpr qsizetype mostRemembered = 32'768;

bool isLong(const QString& text) {
    return text.size() > ShownTexts::headUnits + ShownTexts::tailUnits;
}

QString maskedEnds(const QString& text) {
    return maskedSecrets(text.left(ShownTexts::headUnits)) + QStringLiteral("\n…\n") +
           maskedSecrets(text.right(ShownTexts::tailUnits));
}

/// Of all that decides what is shown.
size_t fingerprint(const QString& text) {
    if (!isLong(text))
        return qHash(text);
    const QStringView view(text);
    return qHashMulti(size_t(text.size()), view.first(ShownTexts::headUnits),
                      view.last(ShownTexts::tailUnits));
}

} // namespace

QString ShownTexts::shown(const QUuid& id, const QString& text) const {
    return remembered(id, text, 0);
}

QString ShownTexts::shownNow(const QUuid& id, const QString& text) const {
    return remembered(id, text, fingerprint(text));
}

QString ShownTexts::remembered(const QUuid& id, const QString& text, size_t fingerprint) const {
    const auto known = m_known.constFind(id);
    if (known != m_known.constEnd() && known->fingerprint == fingerprint)
        return known->masked.isEmpty() ? text : known->masked;
    const QString masked = worked(text);
    if (m_known.size() >= mostRemembered)
        m_known.clear();
    m_known.insert(id, {fingerprint, masked == text ? QString() : masked});
    return masked;
}

QString ShownTexts::worked(const QString& text) {
    return isLong(text) ? maskedEnds(text) : maskedSecrets(text);
}

} // namespace quorvel
