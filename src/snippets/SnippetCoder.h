#pragma once

#include "snippets/Snippet.h"

namespace quorvel {

/// The stored form of a library: every key, the unknown ones too.
QJsonObject encodedStoreData(const StoreData& data);

struct DecodedStoreData {
    StoreData data;       ///< Everything that could be understood, each id once.
    bool damaged = false; ///< Something was missing, of the wrong type or there twice.
};

/// A snippet without id, title or text is left out; what is wrong in an optional key counts as
/// absent. The snippets of a group that cannot be understood go to the root. Of two with the same
/// id the later one gets a new id.
DecodedStoreData decodedStoreData(const QJsonObject& object);

/// The whole file, indented, with sorted keys.
QByteArray encodedSnippetFile(const StoreData& data);
DecodedStoreData decodedSnippetFile(const QByteArray& bytes);

} // namespace quorvel
