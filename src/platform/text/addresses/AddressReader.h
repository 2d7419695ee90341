#pragma once

#include "platform/text/Tokens.h"

namespace quorvel {

/// Some tokens in a row: [first, end). `weight` is what they say for an address, in tenths.
struct AddressPart {
    qsizetype first = 0;
    qsizetype end = 0;
    int weight = 0;

    /// UTF-16 units of its first and its last token that do not belong to it: scripts without
    /// blanks have whole sentences in a token.
    qsizetype unusedHead = 0;
    qsizetype unusedTail = 0;

    bool isEmpty() const { return end <= first; }
};

/// What the parsers of addresses ask the tokens. Every question looks at a bounded number of them.
class AddressReader {
public:
    explicit AddressReader(const Tokens& tokens)
        : m_tokens(tokens) {}

    const Tokens& tokens() const { return m_tokens; }
    qsizetype size() const { return m_tokens.size(); }
    bool has(qsizetype index) const { return index >= 0 && index < size(); }

    bool isWord(qsizetype index) const { return m_tokens.isWord(index); }
    bool isNumber(qsizetype index) const { return m_tokens.isNumber(index); }
    bool isMark(qsizetype index, QChar mark) const { return m_tokens.isMark(index, mark); }

    /// One of these marks.
    bool isMarkOf(qsizetype index, QStringView marks) const;

    /// The folded word; empty for anything else.
    QStringView word(qsizetype index) const;

    /// Digits of a number; 0 for anything else.
    int digits(qsizetype index) const;

    /// Stands right behind the token before it.
    bool isGlued(qsizetype index) const { return has(index) && !m_tokens.at(index).afterSpace; }
    bool startsLine(qsizetype index) const { return !has(index) || m_tokens.at(index).afterLine; }

    /// On the same line as the token before it.
    bool continuesLine(qsizetype index) const {
        return has(index) && !m_tokens.at(index).afterLine;
    }

    /// A word that begins with a capital letter, be it behind an article ("d'Italie"), or with a
    /// letter of a script that knows no capitals.
    bool isCapital(qsizetype index) const;

    /// A word of capital letters alone.
    bool isUpper(qsizetype index) const;

    /// "-" or one of its relatives between two tokens without blanks.
    bool isHyphen(qsizetype index) const;

    /// The first word of "Karl-Marx-Allee", given the last one.
    qsizetype compoundStart(qsizetype last) const;

    /// Behind "Karl-Marx-Allee", given the first word.
    qsizetype compoundEnd(qsizetype first) const;

    /// Behind the dot of an abbreviation; `index` where there is none.
    qsizetype afterDot(qsizetype index) const {
        return isMark(index, u'.') && isGlued(index) ? index + 1 : index;
    }

    /// Behind "12", "12a", "12 bis", "12-14", "12/3"; `index` where no house number begins.
    qsizetype houseNumberEnd(qsizetype index) const;

    /// Whether a part may end before this token: the text or line ends, or a mark follows.
    bool endsPart(qsizetype index) const;

    /// Whether a part may begin here: the text or line begins, or a mark stands before.
    bool beginsPart(qsizetype index) const;

private:
    bool isLetterTail(qsizetype index) const;

    const Tokens& m_tokens;
};

} // namespace quorvel
