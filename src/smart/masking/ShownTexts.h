#pragma once

#include <QHash>
#include <QString>
#include <QUuid>

namespace quorvel {

/// What may be shown of clips, worked out once for each. Of a long text only its beginning and its
/// end are kept, with a line of "…" between, so the cost of a title does not grow with the clip.
class ShownTexts {
public:
    /// A clip's text never changes, so its identifier stands for it.
    QString shown(const QUuid& id, const QString& text) const;

    /// The same for a snippet, whose text may change.
    QString shownNow(const QUuid& id, const QString& text) const;

    /// The same for a text that is nobody's clip.
    static QString worked(const QString& text);

    static constexpr qsizetype headUnits = 3072;
    static constexpr qsizetype tailUnits = 1024;

private:
    struct Known {
        size_t fingerprint; ///< Of the text that was looked at; 0 for one that never changes.
        QString masked;     ///< Empty for "nothing to hide", which nearly all clips are.
    };
    QString remembered(const QUuid& id, const QString& text, size_t fingerprint) const;

    mutable QHash<QUuid, Known> m_known;
};

} // namespace quorvel
