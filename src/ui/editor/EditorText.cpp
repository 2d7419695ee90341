#include "ui/editor/EditorText.h"

#include <algorithm>

namespace quorvel {

namespace {

/// Stands before a line break of ours. No character and never part of a text; it is in the text
/// itself, since the editor's undo then knows of it too.
constexpr QChar ownBreakMark(0xFDEF);

bool isLineBreak(QChar c) {
    return c == u'\n' || c == u'\r' || c == QChar::ParagraphSeparator;
}

bool hasLineOver(qsizetype limit, const QString& text) {
    qsizetype length = 0;
    for (const QChar c : text) {
        length = isLineBreak(c) ? 0 : length + 1;
        if (length > limit)
            return true;
    }
    return false;
}

} // namespace

EditorText::EditorText(QString original)
    : m_original(std::move(original))
    , m_lineBreak(m_original.contains(u"\r\n") ? QStringLiteral("\r\n") : QStringLiteral("\n"))
    , m_hasEndlessLines(hasLineOver(longestLine, m_original)) {}

QString EditorText::shown() const {
    if (!m_hasEndlessLines)
        return m_original;
    QString text;
    text.reserve(m_original.size() + m_original.size() / longestLine * 2);
    qsizetype length = 0;
    for (const QChar c : m_original) {
        if (length >= longestLine && !c.isLowSurrogate() && !isLineBreak(c)) {
            text += ownBreakMark;
            text += u'\n';
            length = 0;
        }
        text += c;
        length = isLineBreak(c) ? 0 : length + 1;
    }
    return text;
}

QString EditorText::read(const QTextDocument& document) const {
    if (!document.isModified())
        return m_original;
    return plain(document.toRawText()); // the other form makes no-break spaces ordinary ones
}

QString EditorText::selected(const QTextCursor& cursor) const {
    return plain(cursor.selectedText());
}

QString EditorText::plain(QString text) const {
    if (m_hasEndlessLines)
        text.remove(QString(ownBreakMark) + QChar::ParagraphSeparator);
    std::replace(text.begin(), text.end(), QChar(QChar::LineSeparator), QChar(u'\n'));
    std::replace(text.begin(), text.end(), QChar(QChar::ParagraphSeparator), QChar(u'\n'));
    return m_lineBreak.size() == 1 ? text : text.replace(u'\n', m_lineBreak);
}

} // namespace quorvel
