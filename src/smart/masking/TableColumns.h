#pragma once

#include "smart/masking/Labels.h"
#include "smart/masking/SecretMasker.h"

namespace quorvel {

/// The passwords of a table, and where its rows end.
struct TableReading {
    QList<SecretRange> hidden;
    qsizetype end = 0;
};

/// Whether a label is followed by the end of a cell or of its line.
bool mayHeadColumn(QStringView text, const Label& label);

/// The column that a label heads, where the label is a cell of its own in a line of cells.
TableReading columnBelow(QStringView text, const Label& label);

} // namespace quorvel
