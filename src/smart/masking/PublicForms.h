#pragma once

#include <QStringView>

namespace quorvel {

/// Whether a run of random characters has the form of something that is no secret: a public key,
/// a digest, an address of a chain of blocks, the id of a record, a position in a game, encoded
/// text or an encoded picture.
bool isPublicForm(QStringView run);

/// Whether the words around say that the run is public: a digest, a proof of a domain, a revision.
bool isNamedPublic(QStringView text, qsizetype start, qsizetype end);

} // namespace quorvel
