#pragma once

#include <QStringList>

namespace quorvel {

/// The words of a text as the lists are written: folded, in plain letters, without the marks around
/// them.
QStringList foldedWords(const QString& text);

} // namespace quorvel
