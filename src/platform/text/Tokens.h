#pragma once

#include <QList>
#include <QString>

namespace quorvel {

/// A word (letters and their marks, apostrophes between letters), a number (decimal digits) or a
/// mark (any other single character that is no white space). "NW1" is a word and a number, "5th" a
/// number and a word, "12.5" a number, a mark and a number.
struct Token {
    enum class Kind : quint8 { word, number, mark };

    Kind kind = Kind::mark;

    /// White space, or a line break, stands before it (the first token has both).
    bool afterSpace = true;
    bool afterLine = true;

    /// Range in the text, in UTF-16 units.
    qint32 start = 0;
    qint32 length = 0;

    /// Of a number with at most nine digits its value, else -1.
    qint32 value = -1;

    /// Range of its folded form.
    qint32 foldedStart = 0;
    qint32 foldedLength = 0;

    qint32 end() const { return start + length; }
};

/// A text cut into tokens once, for all finders that read words. Does not own the text. Words are
/// to be compared by their folded form (`folded` in foundation/Folding.h): tables must hold folded
/// words.
class Tokens {
public:
    explicit Tokens(QStringView text);

    QStringView text() const { return m_text; }
    qsizetype size() const { return m_tokens.size(); }
    const Token& at(qsizetype index) const { return m_tokens.at(index); }

    bool isWord(qsizetype index) const { return isOf(index, Token::Kind::word); }
    bool isNumber(qsizetype index) const { return isOf(index, Token::Kind::number); }

    /// Whether this is that mark; false beyond the ends.
    bool isMark(qsizetype index, QChar mark) const {
        return isOf(index, Token::Kind::mark) && m_text.at(at(index).start) == mark;
    }

    QStringView written(qsizetype index) const {
        return m_text.mid(at(index).start, at(index).length);
    }
    QStringView folded(qsizetype index) const {
        return QStringView(m_folded).mid(at(index).foldedStart, at(index).foldedLength);
    }

private:
    bool isOf(qsizetype index, Token::Kind kind) const {
        return index >= 0 && index < size() && at(index).kind == kind;
    }
    void cut();
    void append(Token::Kind kind, qsizetype start, qsizetype end);

    QStringView m_text;
    QString m_folded;
    QList<Token> m_tokens;
    bool m_afterSpace = true;
    bool m_afterLine = true;
};

} // namespace quorvel
