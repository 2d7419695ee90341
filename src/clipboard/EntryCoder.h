#pragma once

#include "clipboard/RecentClipboardEntry.h"

#include <QJsonObject>

#include <optional>

namespace quorvel {

/// The stored form of an entry: every field but the captured forms, which are not kept.
QJsonObject encodedEntry(const RecentClipboardEntry& entry);

/// Absent when a field that must be there is missing or of the wrong type. Unknown tags are
/// dropped; an expiry without a pin is, too.
std::optional<RecentClipboardEntry> decodedEntry(const QJsonObject& object);

/// The whole history file, indented, with sorted keys.
QByteArray encodedHistory(const QList<RecentClipboardEntry>& entries);

struct DecodedHistory {
    QList<RecentClipboardEntry> entries; ///< Every entry that could be understood.
    bool damaged = false;                ///< Something in the file could not be.
};

DecodedHistory decodedHistory(const QByteArray& bytes);

} // namespace quorvel
