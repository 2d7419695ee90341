#pragma once

#include <QStringView>

namespace quorvel {

/// What a run of characters is made of, to tell random strings from words and names.
struct RunShape {
    int size = 0;
    int lower = 0;
    int upper = 0;
    int digits = 0;
    int symbols = 0;
    int others = 0;

    /// Neighbours of different classes; punctuation between them does not count.
    int changes = 0;
    int upperRuns = 0;

    /// Neighbours that are both letters, and those of them that are frequent in languages.
    int pairs = 0;
    int frequentPairs = 0;
    int longestLower = 0;
    int distinct = 0;
    bool isHex = true;

    int letters() const { return lower + upper + others; }

    /// High for random characters, low for words and for names put together of words: changes of
    /// class speak for chance, frequent pairs of letters against it.
    int randomness() const { return changeRate() - frequentRate(); }
    int frequentRate() const { return pairs > 0 ? frequentPairs * 100 / pairs : 0; }

    /// Changes per hundred neighbours.
    int changeRate() const { return size > 1 ? changes * 100 / (size - 1) : 0; }
};

/// Looks at no more than the first few hundred characters.
RunShape shapeOf(QStringView run);

/// Whether it is more than a filler such as "xxxx" or a plain word.
bool isFilled(const RunShape& shape);

/// Whether it looks like made by a machine rather than put together of words.
bool looksGenerated(const RunShape& shape);

} // namespace quorvel
