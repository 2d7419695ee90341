#pragma once

#include <QString>

namespace quorvel {

/// A title for a text that has none: its first line with anything to see, shortened. Empty when
/// there is no such line.
QString titleOfText(const QString& text);

} // namespace quorvel
