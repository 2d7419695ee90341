#pragma once

#include "platform/Pasteboard.h"

#include <optional>

namespace quorvel {

/// Whether the bytes are built like a PNG file: signature, a header with a sane size first, whole
/// chunks, an end. Does not decode.
bool looksLikePng(const QByteArray& bytes);

/// The item's own PNG when it has a sound one; empty otherwise.
QByteArray ownPng(const ClipboardSnapshotItem& item);

/// The representation from which a picture can be converted to PNG; absent when there is none.
std::optional<PasteboardRepresentation> convertibleImage(const ClipboardSnapshotItem& item);

/// The picture as PNG; empty when it is broken or larger than can be decoded. May take long.
QByteArray convertedToPng(const PasteboardRepresentation& image);

} // namespace quorvel
