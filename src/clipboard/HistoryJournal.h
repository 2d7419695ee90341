#pragma once

#include "clipboard/RecentClipboardEntry.h"
#include "foundation/Files.h"

#include <QByteArray>
#include <QList>
#include <QString>

namespace quorvel {

/// The changes since the history file was written last, one JSON object a line. Every record says
/// what is so afterwards, never what to add, so replaying one that has taken effect already does
/// no harm, and a line that was cut off by a crash is passed over.
namespace HistoryJournal {

QByteArray putRecord(const RecentClipboardEntry& entry);
QByteArray changeRecord(const RecentClipboardEntry& entry);
QByteArray removeRecord(const QString& identityKey);

/// Applies every record in order.
void replay(const QByteArray& journal, QList<RecentClipboardEntry>& entries);

/// Appends to the file (mode 0600) and waits until it is on the disk. Disk thread.
std::optional<FileError> append(const QString& path, const QByteArray& records);

/// Empties the file. Disk thread.
void empty(const QString& path);

} // namespace HistoryJournal

} // namespace quorvel
