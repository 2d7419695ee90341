#include "clipboard/HistoryJournal.h"

#include "clipboard/EntryCoder.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>

#include <algorithm>
#include <unistd.h>

namespace quorvel::HistoryJournal {

namespace {

const QString operationField = QStringLiteral("operation");
const QString entryField = QStringLiteral("entry");
const QString keyField = QStringLiteral("key");
const QString putOperation = QStringLiteral("put");
const QString changeOperation = QStringLiteral("change");
const QString removeOperation = QStringLiteral("remove");

/// Begins with a line break too: what follows a torn line is then whole.
QByteArray record(const QString& operation, const QString& field, const QJsonValue& value) {
    const QJsonObject object{{operationField, operation}, {field, value}};
    return '\n' + QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
}

bool haveSameIdentity(const RecentClipboardEntry& a, const RecentClipboardEntry& b) {
    return isSameClip(a, b.text, b.imagePNGData);
}

void apply(const QJsonObject& record, QList<RecentClipboardEntry>& entries) {
    const QString operation = record.value(operationField).toString();
    if (operation == removeOperation)
        return void(entries.removeIf([key = record.value(keyField).toString()](const auto& entry) {
            return identityKey(entry) == key;
        }));
    const auto entry = decodedEntry(record.value(entryField).toObject());
    if (!entry)
        return;
    const auto isIt = [&](const auto& known) { return haveSameIdentity(known, *entry); };
    if (operation == putOperation) {
        entries.removeIf(isIt);
        entries.prepend(*entry);
    } else if (operation == changeOperation) {
        std::replace_if(entries.begin(), entries.end(), isIt, *entry);
    }
}

FileError failure(const QFile& file) {
    return {FileProblem::unwritable, file.errorString()};
}

} // namespace

QByteArray putRecord(const RecentClipboardEntry& entry) {
    return record(putOperation, entryField, encodedEntry(entry));
}

QByteArray changeRecord(const RecentClipboardEntry& entry) {
    return record(changeOperation, entryField, encodedEntry(entry));
}

QByteArray removeRecord(const QString& key) {
    return record(removeOperation, keyField, key);
}

void replay(const QByteArray& journal, QList<RecentClipboardEntry>& entries) {
    for (const QByteArray& line : journal.split('\n'))
        apply(QJsonDocument::fromJson(line).object(), entries);
}

std::optional<FileError> append(const QString& path, const QByteArray& records) {
    makePrivateFolder(QFileInfo(path).path());
    QFile file(path);
    const bool isNew = !file.exists();
    if (!file.open(QIODevice::WriteOnly | QIODevice::Append))
        return failure(file);
    if (isNew)
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    if (file.write(records) != records.size() || !file.flush() || fdatasync(file.handle()) != 0)
        return failure(file);
    return std::nullopt;
}

void empty(const QString& path) {
    // A journal that cannot be emptied is replayed once more, which changes nothing.
    QFile(path).resize(0);
}

} // namespace quorvel::HistoryJournal
