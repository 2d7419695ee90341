#pragma once

#include <QString>

namespace quorvel {

/// What one word says. Scores are chosen so that a given and a family name together pass, also when
/// one of them is an ordinary word, but an ordinary word beside a lone given name does not.
struct Evidence {
    double given = 0;
    double family = 0;
    bool isParticle = false;
    bool isKnown = false;
};

inline constexpr double listedScore = 2.0;
inline constexpr double unknownScore = 0.7;

/// What a folded word says; the parts of "Jean-Paul" are words of their own, the best speaks for
/// all.
Evidence evidenceOfHyphenated(const QString& word);

/// Whether the folded words are a place, or something else that is called like a person.
bool isNamedPlace(const QString& words);

} // namespace quorvel
