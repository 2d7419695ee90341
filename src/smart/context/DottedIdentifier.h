#pragma once

#include <QStringList>

namespace quorvel {

/// The pieces between the dots of the first dotted identifier of a text ("com.example.app"):
/// \b([A-Za-z0-9_-]+(?:\.[A-Za-z0-9_-]+)+)\b. Empty without one, and when it has very many parts.
/// Takes time in proportion to the text.
QStringList partsOfDottedIdentifier(QStringView text);

} // namespace quorvel
