#pragma once

#include "smart/masking/SecretMasker.h"

#include <QByteArray>

namespace quorvel {

/// A text as a search sees it: without case and diacritics, and with a mask for each secret. Texts
/// and queries are compared as UTF-8.
class SearchedText {
public:
    SearchedText() = default;

    /// Only so many units of the beginning are searched. The secrets by start, without overlaps,
    /// within that beginning.
    SearchedText(const QString& text, qsizetype units, const QList<SecretRange>& secrets)
        : m_text(text)
        , m_units(units)
        , m_secrets(secrets) {}

    /// What it was made from.
    const QString& text() const { return m_text; }

    /// All of it, as it is compared.
    QByteArray form() const;

    /// Whether the query, folded, occurs. Works the text out piece by piece, as far as needed.
    bool contains(const QByteArray& foldedQuery) const;

private:
    template <typename Use>
    bool anyPiece(const Use& use) const;

    QString m_text; ///< Shares the clip's memory.
    qsizetype m_units = 0;
    QList<SecretRange> m_secrets;
};

/// Appends the folded form of a text. Pieces of a text may be appended one after the other, unless
/// one ends between two surrogates.
void appendFoldedForm(QStringView text, QByteArray& to);

/// Whether one occurs in the other; the empty one always does.
bool occurs(const QByteArray& sought, const QByteArray& in);

} // namespace quorvel
