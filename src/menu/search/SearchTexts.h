#pragma once

#include "app/preferences/Preferences.h"
#include "menu/search/SearchedText.h"

#include <QHash>
#include <QSet>
#include <QString>
#include <QUuid>

namespace quorvel {

/// The texts that a search looks into, without case, diacritics and what masking hides, worked out
/// once for each and kept within a budget of memory.
class SearchTexts {
public:
    explicit SearchTexts(const Preferences& preferences);

    /// Whether the query, folded, occurs in the text.
    bool contains(const QUuid& id, const QString& text, const QByteArray& foldedQuery) const;

    /// Works the text out now, so that no key stroke has to wait for it.
    void prepare(const QUuid& id, const QString& text) const;

    /// Lets go of all texts but these.
    void retain(const QSet<QUuid>& ids) const;

    /// The form in which texts are compared: folded, as UTF-8.
    static QByteArray foldedForm(const QString& text);

    /// Of a longer text only the beginning is searched.
    static constexpr qsizetype mostUnits = 1024 * 1024;

    /// Bytes of what is kept; beyond, a text is folded again when it is searched, as far as needed.
    static constexpr qsizetype mostBytes = 32 * 1024 * 1024;

private:
    struct Known {
        SearchedText searched;
        QByteArray folded; ///< The whole form of what is kept.
        QByteArray missed; ///< The last query that does not occur.
        bool isKept = false;
        bool isWorkedOut = false;
    };

    Known& knownOf(const QUuid& id, const QString& text) const;
    Known workedOut(const QString& text) const;
    void dropIfMaskingChanged() const;

    const Preferences& m_preferences;
    mutable QHash<QUuid, Known> m_known;
    mutable qsizetype m_bytes = 0;
    mutable bool m_isMasked = true;
};

} // namespace quorvel
