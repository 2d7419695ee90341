#pragma once

#include <QString>

namespace quorvel {

/// How far links reach in running text. All positions are in UTF-16 units.

/// Whether a unit ends any link: white space, controls, quotation marks, brackets of other scripts,
/// and what addresses never hold.
bool endsLink(QChar c);

/// Where the link that begins at `start` ends, when its units go on to `limit` at most: without the
/// punctuation behind it and without closing brackets that it does not open.
qsizetype endOfLink(QStringView text, qsizetype start, qsizetype limit);

} // namespace quorvel
