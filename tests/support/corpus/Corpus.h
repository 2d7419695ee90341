#pragma once

#include <QList>
#include <QString>

namespace quorvel::testing {

/// A part of a text, in UTF-16 units.
struct Extent {
    qsizetype start = 0;
    qsizetype length = 0;

    friend bool operator==(const Extent&, const Extent&) = default;
};

/// One text that a person has judged. The format of the files is in tests/corpus/README.md.
struct LabelledText {
    int line = 0;
    bool isPositive = false;
    QString region;
    QString text;
    QList<Extent> extents;
};

/// All texts of a file. A line that breaks the format ends the process with its number: a corpus
/// that is read in part would judge wrongly.
QList<LabelledText> readCorpus(const QString& path);

} // namespace quorvel::testing
