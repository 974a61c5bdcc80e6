#pragma once

#include <QByteArray>
#include <QString>

#include <variant>

/// Small files that belong to the user alone: read with a limit, written whole or not at all.
namespace quorvantel::platform {

enum class FileError {
    Missing,    ///< There is nothing at the path, or a link that leads nowhere.
    NotRegular, ///< A folder, FIFO, socket or device, or a loop of links.
    TooLarge,
    Unreadable, ///< Permission denied, or the disk failed.
};

using FileContent = std::variant<QByteArray, FileError>;

/// Reads a regular file of at most `limit` bytes. Never blocks on a FIFO or device; symbolic links
/// are followed.
FileContent readRegularFile(const QString& path, qint64 limit);

/// The same for what a folder has just listed as a regular file, or as a link to one: spares what
/// it takes to find the folder again, and to ask once more what the file is. `folder` is the open
/// folder, and `name` is in the encoding of the file system.
FileContent readListedFile(int folder, const char* name, qint64 limit);

/// Replaces the content of a file atomically and flushes it to disk before the rename, so that a
/// crash leaves either the old content or the new.
///
/// Missing folders are created for the user only (mode 0700), existing ones stay as they are; the
/// file has mode 0600. A symbolic link in place of the file or of a folder is followed and stays a
/// link. A device is never replaced. A process that is killed while it writes leaves one file
/// beside the target, "NAME.unfinished", which the next replacement takes over. Returns false when
/// the file was not changed.
bool replacePrivateFile(const QString& path, const QByteArray& content);

/// What went wrong, in words for a log line.
QString describe(FileError error);

} // namespace quorvantel::platform
