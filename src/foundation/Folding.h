#pragma once

#include <QString>

namespace quorvel {

/// The text as it is compared without case and diacritics: decomposed, marks removed, case folded
/// ("Ça" and "ça" become "ca", "й" becomes "и", "ß" becomes "ss"). Invalid surrogates stay as they
/// are.
QString folded(QStringView text);

/// Appends the folded form of one code point.
void appendFolded(char32_t character, QString& to);

} // namespace quorvel
