#pragma once

#include "foundation/Date.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace quorvel {

enum class FileProblem { missing, unreadable, tooLarge, unwritable };

struct FileError {
    FileProblem problem;
    QString message; ///< The system's own words, for logs and the status report.
};

struct FileContent {
    QByteArray bytes; ///< Empty when there is an error.
    std::optional<FileError> error;
};

/// Reads a whole regular file, refusing one of more than `mostBytes` bytes without reading it.
FileContent readWholeFile(const QString& path, qint64 mostBytes);

/// Replaces the file through a synced temporary file beside it, so that at any moment the old or
/// the new content is there, whole. The folder is made if missing (mode 0700); the file gets mode
/// 0600. Returns the error when nothing was changed.
std::optional<FileError> writeFileAtomically(const QString& path, const QByteArray& bytes);

/// Makes a private folder (mode 0700) with its parents; true when it is there.
bool makePrivateFolder(const QString& path);

/// Moves a file (or whatever is in its place) to a dated name beside it and returns that name;
/// empty when it could not be moved, and then the original is untouched.
QString setFileAside(const QString& path, Date now);

} // namespace quorvel
