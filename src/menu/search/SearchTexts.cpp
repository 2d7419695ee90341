#include "menu/search/SearchTexts.h"

#include "foundation/Text.h"

namespace quorvel {

SearchTexts::SearchTexts(const Preferences& preferences)
    : m_preferences(preferences) {}

/// While a query grows, it cannot occur where its beginning does not.
bool SearchTexts::contains(const QUuid& id, const QString& text,
                           const QByteArray& foldedQuery) const {
    Known& known = knownOf(id, text);
    if (!known.missed.isEmpty() && occurs(known.missed, foldedQuery))
        return false;
    const bool isFound =
        known.isKept ? occurs(foldedQuery, known.folded) : known.searched.contains(foldedQuery);
    if (!isFound)
        known.missed = foldedQuery;
    return isFound;
}

void SearchTexts::prepare(const QUuid& id, const QString& text) const {
    knownOf(id, text);
}

SearchTexts::Known& SearchTexts::knownOf(const QUuid& id, const QString& text) const {
    dropIfMaskingChanged();
    Known& known = m_known[id];
    if (known.isWorkedOut && isSameText(known.searched.text(), text))
        return known;
    m_bytes -= known.folded.size();
    known = workedOut(text);
    m_bytes += known.folded.size();
    return known;
}

SearchTexts::Known SearchTexts::workedOut(const QString& text) const {
    const qsizetype units = std::min(text.size(), mostUnits);
    const auto secrets =
        m_isMasked ? secretsIn(QStringView(text).first(units)) : QList<SecretRange>();
    Known known{.searched = {text, units, secrets},
                .isKept = m_bytes + units <= mostBytes,
                .isWorkedOut = true};
    if (known.isKept)
        known.folded = known.searched.form();
    return known;
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
    QByteArray form;
    appendFoldedForm(text, form);
    return form;
}

void SearchTexts::dropIfMaskingChanged() const {
    const bool isMasked = m_preferences.isOn(keys::sensitiveDataMaskingEnabled);
    if (std::exchange(m_isMasked, isMasked) == isMasked)
        return;
    m_known.clear();
    m_bytes = 0;
}

} // namespace quorvel
