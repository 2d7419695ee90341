#pragma once

#include <QList>
#include <QString>

namespace quorvel {

/// The pieces of a text between white space, none of them empty; no more than `most` are looked
/// for.
QList<QStringView> words(QStringView text, qsizetype most);

/// Whether the text has no more than `limit` user-perceived characters. Looks no further than it
/// needs.
bool hasAtMostCharacters(QStringView text, qsizetype limit);

} // namespace quorvel
