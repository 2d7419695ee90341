#pragma once

#include "Corpus.h"

#include <map>
#include <memory>

namespace quorvel::testing {

/// How right a kind of detection is on labelled texts.
struct Score {
    int truePositives = 0;
    int falsePositives = 0;
    int falseNegatives = 0;
    int trueNegatives = 0;

    /// Of the marked parts, how many were found to the character.
    int parts = 0;
    int exactParts = 0;

    double precision() const;
    double recall() const;
    double exactness() const;
};

/// A text that was judged wrongly.
struct Miss {
    LabelledText text;
    QString answer;
};

struct Report {
    QString kind;
    Score score;
    QList<Miss> misses;

    /// Found, but not to the character.
    QList<Miss> inexact;
};

/// Judges one kind ("url", "email", "phone", "date", "address", "name", "secret") on its texts.
Report judge(const QString& kind, const QList<LabelledText>& texts);

} // namespace quorvel::testing
