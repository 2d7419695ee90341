#pragma once

#include "platform/Pasteboard.h"

namespace quorvel {

/// Position of the representation that holds the plain text best, by type; -1 when none does.
/// Order of preference: UTF-8, other declared charsets, plain text, the older names.
qsizetype bestTextType(const QList<QString>& types);

/// The text of a representation, decoded by the charset its type names. Invalid sequences become
/// U+FFFD; zero bytes at the end are dropped.
QString decodedText(const PasteboardRepresentation& representation);

/// The plain text of a copied thing; empty when it has none.
QString plainText(const ClipboardSnapshotItem& item);

/// The item with its text offered under every usual name that it lacks: text/plain;charset=utf-8,
/// UTF8_STRING, text/plain, TEXT and STRING (Latin-1). Unchanged when it has no text.
ClipboardSnapshotItem withTextAliases(const ClipboardSnapshotItem& item);

} // namespace quorvel
