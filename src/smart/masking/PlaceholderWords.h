#pragma once

#include <QStringView>

namespace quorvel {

/// Whether a word stands for a password in examples, as in "user:password@host".
bool isPlaceholderWord(QStringView word);

} // namespace quorvel
