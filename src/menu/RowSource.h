#pragma once

#include "paste/PasteOption.h"

#include <QUuid>

namespace quorvel {

/// What a row that pastes is about.
struct RowSource {
    QUuid id;    ///< Of the clip or snippet; null when the row names none.
    QUuid group; ///< Of a snippet in a group.
};

/// Reads a row's represented object: the identifiers, after a smart folder's prefix or without one.
RowSource rowSource(QStringView representedObject);

struct RowSourceWithMode {
    RowSource source;
    PasteOption option;
};

/// Reads a represented object with the way to paste behind it; nothing when a part is missing or
/// not known.
std::optional<RowSourceWithMode> rowSourceWithMode(QStringView representedObject);

} // namespace quorvel
