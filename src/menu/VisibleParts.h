#pragma once

#include "smart/context/TextAnalysisSnapshot.h"

namespace quorvel {

/// How parts of a text may be shown: what masking hides in the text as a whole, it hides in its
/// parts too, although a part alone may not look like a secret.
class VisibleParts {
public:
    enum class Masking { off, on };

    /// Keeps references to both.
    VisibleParts(const QString& text, const TextAnalysisSnapshot& snapshot, Masking masking);

    /// A parameter of the link by its position, as "name=value".
    QString queryParameter(qsizetype index) const;
    QString lastPathSegment() const;
    QString dotPart(const QString& part) const;

    /// Whether a reference to an issue may be shown at all, in whatever case the text has it.
    bool showsReference(const QString& key) const;

    /// `written` is the card's number, in groups or not.
    QString card(const QString& written) const;

private:
    void readVisibleLink();
    QUrl visibleLink(const TextRange& range) const;

    const QString& m_text;
    const TextAnalysisSnapshot& m_snapshot;
    const bool m_isMasked;
    QString m_visibleText;
    QString m_visibleSegment;
    QList<std::pair<QString, QString>> m_visibleParameters;
};

} // namespace quorvel
