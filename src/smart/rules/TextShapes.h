#pragma once

#include <QString>

namespace quorvel {

/// What a text looks like as a whole.

/// One line of few words: what somebody copies to use as one value.
bool isLikelySingleValue(QStringView text);

/// Holds one of the marks that source code has and prose lacks.
bool looksLikeCode(QStringView text);

/// Two to four words, each written like a name. Whether they are one is the tagger's to say.
bool isWrittenLikePersonName(QStringView text);

} // namespace quorvel
