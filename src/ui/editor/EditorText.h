#pragma once

#include <QString>
#include <QTextCursor>
#include <QTextDocument>

namespace quorvel {

/// A text on its way into an editor's document and back. What the user has not touched comes back
/// as it was, unit by unit.
class EditorText {
public:
    explicit EditorText(QString original);

    /// As the editor is to show it: endless lines are broken, since an editor lays out a line as a
    /// whole at every key press.
    QString shown() const;

    /// What the document says now, with the breaks of the lines as the original had them.
    QString read(const QTextDocument& document) const;

    /// The same of what is selected, for a copy.
    QString selected(const QTextCursor& cursor) const;

    static constexpr qsizetype longestLine = 8192;

private:
    QString plain(QString text) const;

    QString m_original;
    QString m_lineBreak;
    bool m_hasEndlessLines = false;
};

} // namespace quorvel
