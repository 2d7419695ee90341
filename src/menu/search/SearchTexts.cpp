#include "menu/search/SearchTexts.h"

#include "foundation/Folding.h"
#include "foundation/Text.h"
#include "smart/masking/SecretMasker.h"

#include <cstring>

namespace quorvel {

namespace {

bool occurs(const QByteArray& sought, const QByteArray& in) {
    return sought.isEmpty() ||
           memmem(in.constData(), size_t(in.size()), sought.constData(), size_t(sought.size()));
}

} // namespace

SearchTexts::SearchTexts(const Preferences& preferences)
    : m_preferences(preferences) {}

bool SearchTexts::contains(const QUuid& id, const QString& text,
                           const QByteArray& foldedQuery) const {
    prepare(id, text);
    const auto known = m_known.constFind(id);
    return occurs(foldedQuery, known == m_known.constEnd() ? form(text) : known->folded);
}

void SearchTexts::prepare(const QUuid& id, const QString& text) const {
    dropIfMaskingChanged();
    const auto known = m_known.constFind(id);
    if (known != m_known.constEnd()) {
        if (isSameText(known->text, text))
            return;
        m_bytes -= known->folded.size();
        m_known.erase(known);
    }
    if (m_bytes + text.size() > mostBytes)
        return;
    const QByteArray folded = form(text);
    m_bytes += folded.size();
    m_known.insert(id, {text, folded});
}

void SearchTexts::retain(const QSet<QUuid>& ids) const {
    m_known.removeIf([&](const auto& known) {
        if (ids.contains(known.key()))
            return false;
        m_bytes -= known.value().folded.size();
        return true;
    });
}

QByteArray SearchTexts::foldedForm(const QString& text) {
    return folded(text).toUtf8();
}

QByteArray SearchTexts::form(const QString& text) const {
    const QString searched = text.size() > mostUnits ? text.left(mostUnits) : text;
    return foldedForm(m_isMasked ? maskedSecrets(searched) : searched);
}

void SearchTexts::dropIfMaskingChanged() const {
    const bool isMasked = m_preferences.isOn(keys::sensitiveDataMaskingEnabled);
    if (std::exchange(m_isMasked, isMasked) == isMasked)
        return;
    m_known.clear();
    m_bytes = 0;
}

} // namespace quorvel
