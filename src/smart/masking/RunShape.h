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

    /// Neighbours of different classes.
    int changes = 0;
    int longestLower = 0;
    int distinct = 0;
    bool isHex = true;

    int letters() const { return lower + upper + others; }

    /// Changes per hundred neighbours.
    int changeRate() const { return size > 1 ? changes * 100 / (size - 1) : 0; }
};

/// Looks at no more than the first few hundred characters.
RunShape shapeOf(QStringView run);

/// Whether a published token form is filled with something like a key rather than with "xxxx" or
/// words.
bool looksGenerated(const RunShape& shape);

} // namespace quorvel
