#pragma once

#include "paste/layouts/LetterPairs.h"

namespace quorvel {

/// A language of which only the letters are known: each is as likely as the other.
struct UnknownLanguage {
    QChar::Script script = QChar::Script_Unknown;
    int letterCount = 0;
};

/// How unlikely it is that somebody who writes in the language writes this text, in bits. Texts of
/// one length can be compared, in different languages too: the lower cost is the likelier text.
double costInBits(QStringView text, const LetterPairs& language);

/// What is less likely in a known language than here is no word of it.
double costInBits(QStringView text, const UnknownLanguage& language);

} // namespace quorvel
