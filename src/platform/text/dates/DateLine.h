#pragma once

#include "platform/text/Tokens.h"
#include "platform/text/dates/DateWords.h"

#include <QVarLengthArray>

#include <algorithm>

namespace quorvel {

/// A word, number or mark with what it can be in a date.
struct Lexeme {
    enum class Kind : quint8 { word, number, mark };

    RoleMask roles = 0;
    qint32 start = 0;
    qint32 end = 0;

    /// Of a number; -1 when it is too long.
    qint32 value = -1;

    /// Head of the chain of meanings.
    qint16 meanings = WordMeanings::none;

    /// Of a mark: the plain form of it (full width and the many hyphens are levelled).
    char16_t mark = 0;
    quint8 digits = 0;
    Kind kind = Kind::mark;
    bool afterSpace = false;

    /// Of a script without blanks between words.
    bool eastern = false;
    bool capital = false;
};

/// One line of a text as the parsers of dates read it. Every question about an index beyond the
/// ends is answered as if nothing stood there.
class DateLine {
public:
    explicit DateLine(const Tokens& tokens)
        : m_tokens(tokens) {}

    /// Reads tokens from `first` to the end of the line, of a very long one a part; returns where
    /// the next begins.
    qsizetype read(qsizetype first);

    /// Whether there is a number or a word that can begin a date by itself.
    bool isPromising() const { return m_isPromising; }

    int size() const { return int(m_lexemes.size()); }
    const Lexeme& at(int index) const { return contains(index) ? m_lexemes[index] : m_nothing; }
    QString folded(int index) const;
    QStringView written(int index) const;
    bool isUpper(int index) const {
        return std::all_of(written(index).begin(), written(index).end(),
                           [](QChar c) { return c.isUpper(); });
    }

    bool isMark(int index, char16_t mark) const { return at(index).mark == mark && mark != 0; }
    bool isGlued(int index) const { return contains(index) && !at(index).afterSpace; }
    bool has(int index, Role role) const { return (at(index).roles & maskOf(role)) != 0; }
    bool hasAny(int index, RoleMask roles) const { return (at(index).roles & roles) != 0; }
    bool isWord(int index) const { return contains(index) && at(index).kind == Lexeme::Kind::word; }
    bool isDigits(int index) const {
        return contains(index) && at(index).kind == Lexeme::Kind::number;
    }

    /// The value of that role here, or -1.
    int value(int index, Role role) const;
    const WordRow* row(int index, Role role) const {
        return has(index, role) ? WordMeanings::row(at(index).meanings, role) : nullptr;
    }

    /// A number of that many digits within the bounds, else -1.
    int number(int index, int leastDigits, int mostDigits, int least, int most) const;

    /// Whether a date may begin before, or end after, what stands there: no part of a longer
    /// number, word, path or address.
    bool beginsCleanly(int index) const;
    bool endsCleanly(int end) const;

private:
    bool contains(int index) const { return index >= 0 && index < size(); }
    void readWord(const Token& token, qsizetype index);
    void readEastern(const Token& token, QStringView written);
    void appendEastern(qint32 start, qint32 end, qint16 meanings, bool afterSpace);
    qsizetype readEasternNumber(qint32 start, QStringView rest, bool afterSpace);
    void append(Lexeme lexeme);
    void appendEasternNumber(Lexeme lexeme);
    void appendWord(qint32 start, qint32 end, QStringView word, bool afterSpace);
    bool beginsAfterMark(int index) const;

    const Tokens& m_tokens;
    QVarLengthArray<Lexeme, 64> m_lexemes;
    Lexeme m_nothing;
    bool m_isPromising = false;

    /// The run without blanks being read holds "://": its words are parts of an address.
    bool m_isInAddress = false;
};

} // namespace quorvel
