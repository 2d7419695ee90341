#pragma once

#include <QByteArray>
#include <QChar>
#include <QHash>
#include <QList>
#include <QString>

#include <optional>

namespace quorvel {

/// How rare letters are beside each other in one language, in bits: one more is half as frequent.
/// Built into the program from resources/letters/pairs.txt.
class LetterPairs {
public:
    using Symbol = int; ///< A letter of the language by its place, or the edge of a word.
    static constexpr Symbol edge = 0;

    /// By a code such as "de"; null when the language is not known.
    static const LetterPairs* of(QStringView language);

    /// The codes of all known languages that are written in a script.
    static QList<QString> languagesOf(QChar::Script script);

    /// Absent when no word of the language has the letter, which is to be in lower case.
    std::optional<Symbol> symbol(QChar letter) const;

    /// Of `after` behind `before`.
    double cost(Symbol before, Symbol after) const;

    QChar::Script script() const { return m_script; }

private:
    struct Languages;
    static const Languages& languages();

    QHash<QChar, Symbol> m_symbols;
    QList<QByteArray> m_rows;
    QChar::Script m_script = QChar::Script_Unknown;
};

} // namespace quorvel
