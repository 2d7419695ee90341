#include "paste/layouts/TextCost.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace quorvel {

namespace {

enum class Kind { letter, space, opener, joiner, closer, digit, other };
constexpr std::size_t kindCount = 7;

struct Mark {
    QChar character;
    Kind kind;
    double cost; ///< Among the marks of its kind.
};

/// By where they stand: before a word, within one, behind one. The figures are rounded guesses of
/// what is usual in prose of all languages; they only have to tell ";" from ",".
constexpr std::array marks{
    Mark{u'(', Kind::opener, 1.5},    Mark{u'"', Kind::opener, 1.5},
    Mark{u'\u00AB', Kind::opener, 3}, Mark{u'\u201C', Kind::opener, 3},
    Mark{u'\u201E', Kind::opener, 3}, Mark{u'\u00BF', Kind::opener, 4},
    Mark{u'\u00A1', Kind::opener, 5}, Mark{u'\'', Kind::joiner, 1.5},
    Mark{u'\u2019', Kind::joiner, 2}, Mark{u'-', Kind::joiner, 1.5},
    Mark{u'/', Kind::joiner, 4},      Mark{u'@', Kind::joiner, 5},
    Mark{u'_', Kind::joiner, 7},      Mark{u'.', Kind::closer, 1.5},
    Mark{u',', Kind::closer, 1.5},    Mark{u'!', Kind::closer, 3},
    Mark{u'?', Kind::closer, 3},      Mark{u':', Kind::closer, 4},
    Mark{u';', Kind::closer, 5.5},    Mark{u')', Kind::closer, 4},
    Mark{u'\u00BB', Kind::closer, 5}, Mark{u'\u201D', Kind::closer, 5},
    Mark{u'\u2026', Kind::closer, 5}, Mark{u'%', Kind::closer, 6},
};

constexpr double digitCost = 3.3;
constexpr double otherCost = 5;

/// What follows what. A letter behind a letter is up to the language; so is the end of a word,
/// behind which these are what may come.
constexpr std::array<std::array<double, kindCount>, kindCount> followCosts{{
    // letter space opener joiner closer digit other
    {0.0, 0.4, 7.0, 4.0, 2.5, 7.0, 7.0}, // behind a letter
    {0.2, 5.0, 4.5, 6.0, 5.0, 5.0, 6.0}, // behind a blank
    {0.5, 4.0, 5.0, 5.0, 4.0, 4.0, 5.0}, // behind an opener
    {0.7, 3.0, 5.0, 4.0, 5.0, 3.5, 5.0}, // behind a joiner
    {6.0, 0.2, 5.0, 5.0, 4.0, 5.0, 6.0}, // behind a closer
    {5.0, 1.2, 6.0, 3.0, 2.0, 1.0, 5.0}, // behind a digit
    {3.0, 1.5, 4.0, 4.0, 4.0, 3.0, 3.0}, // behind anything else
}};

/// A letter that the language has not, but for the marks on it, and one that it has in no form.
constexpr double foreignMarkCost = 9;
constexpr double strangerCost = 13;

/// Of a capital within a word, as Shift gives where the other layout had a sign.
constexpr double innerCapitalCost = 4;

struct Spelled {
    Kind kind;
    double cost = 0; ///< Among its kind; of a letter: for what is unusual about it.
};

/// A letter like others where a language has such words, and where it has none out of place.
bool isInnerApostrophe(QStringView text, qsizetype place) {
    const bool isApostrophe = text[place] == u'\'' || text[place] == u'\u2019';
    return isApostrophe && place > 0 && text[place - 1].isLetter() && place + 1 < text.size() &&
           text[place + 1].isLetter();
}

Spelled nonLetter(QChar c) {
    if (c.isSpace())
        return {Kind::space};
    if (c.isDigit())
        return {Kind::digit, digitCost};
    for (const Mark& mark : marks)
        if (mark.character == c)
            return {mark.kind, mark.cost};
    return {Kind::other, otherCost};
}

/// Reads a text with the language's own idea of letters: `Alphabet` gives the symbol of a letter
/// and the cost of one behind another.
template <typename Alphabet>
class Reader {
public:
    explicit Reader(const Alphabet& alphabet)
        : m_alphabet(alphabet) {}

    double read(QStringView text) {
        for (qsizetype i = 0; i < text.size(); ++i)
            if (text[i].isLetter() || isInnerApostrophe(text, i))
                readLetter(text[i]);
            else if (!text[i].isMark())
                readOther(text[i]);
        return m_cost + (m_kind == Kind::letter ? m_alphabet.cost(m_symbol, LetterPairs::edge) : 0);
    }

private:
    void readLetter(QChar c) {
        const auto [symbol, oddity] = m_alphabet.letter(c == u'\u2019' ? u'\'' : c.toLower());
        m_cost += oddity + follow(Kind::letter) + m_alphabet.cost(m_symbol, symbol);
        if (c.isUpper() && m_wasLower)
            m_cost += innerCapitalCost;
        m_wasLower = c.isLower();
        m_kind = Kind::letter;
        m_symbol = symbol;
    }

    void readOther(QChar c) {
        const Spelled spelled = nonLetter(c);
        if (m_kind == Kind::letter)
            m_cost += m_alphabet.cost(m_symbol, LetterPairs::edge);
        m_cost += spelled.cost + follow(spelled.kind);
        m_kind = spelled.kind;
        m_symbol = LetterPairs::edge;
        m_wasLower = false;
    }

    double follow(Kind kind) const { return followCosts[size_t(m_kind)][size_t(kind)]; }

    const Alphabet& m_alphabet;
    double m_cost = 0;
    Kind m_kind = Kind::space;
    LetterPairs::Symbol m_symbol = LetterPairs::edge;
    bool m_wasLower = false;
};

struct Letter {
    LetterPairs::Symbol symbol;
    double oddity;
};

struct KnownAlphabet {
    const LetterPairs& pairs;

    Letter letter(QChar lower) const {
        if (const auto symbol = pairs.symbol(lower))
            return {*symbol, 0};
        const auto plain =
            pairs.symbol(lower.decomposition().isEmpty() ? lower : lower.decomposition()[0]);
        return plain ? Letter{*plain, foreignMarkCost} : Letter{LetterPairs::edge, strangerCost};
    }
    double cost(LetterPairs::Symbol before, LetterPairs::Symbol after) const {
        const bool isOddPair = before == LetterPairs::edge && after == LetterPairs::edge;
        return isOddPair ? 0 : pairs.cost(before, after);
    }
};

/// Symbol 1 is any letter; words have about five.
struct UnknownAlphabet {
    QChar::Script script;
    double letterCost;

    Letter letter(QChar lower) const {
        return lower.script() == script ? Letter{1, 0} : Letter{LetterPairs::edge, strangerCost};
    }
    double cost(LetterPairs::Symbol before, LetterPairs::Symbol after) const {
        constexpr double goesOn = 0.3;
        constexpr double ends = 2.3;
        if (after == LetterPairs::edge)
            return before == LetterPairs::edge ? 0 : ends;
        return letterCost + (before == LetterPairs::edge ? 0 : goesOn);
    }
};

} // namespace

double costInBits(QStringView text, const LetterPairs& language) {
    const KnownAlphabet alphabet{language};
    return Reader(alphabet).read(text);
}

double costInBits(QStringView text, const UnknownLanguage& language) {
    const UnknownAlphabet alphabet{language.script, std::log2(std::max(language.letterCount, 2))};
    return Reader(alphabet).read(text);
}

} // namespace quorvel
