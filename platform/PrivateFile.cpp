#include "platform/PrivateFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace quorvantel::platform {

namespace {

// The limit that the kernels of Linux and macOS put on a chain of symbolic links is of this order.
constexpr int maximumLinkDepth = 40;

constexpr QFileDevice::Permissions ownerOnlyFile = QFileDevice::ReadOwner | QFileDevice::WriteOwner;
constexpr QFileDevice::Permissions ownerOnlyFolder = ownerOnlyFile | QFileDevice::ExeOwner;

/// The path behind a chain of links, whether or not anything is there; empty for a loop.
QString resolveLinks(const QString& path) {
    QString resolved = path;
    for (int depth = 0; depth < maximumLinkDepth; ++depth) {
        const QFileInfo info(resolved);
        if (!info.isSymLink()) {
            return resolved;
        }
        resolved = info.symLinkTarget();
    }
    return {};
}

bool ensurePrivateFolder(const QString& link) {
    const QString folder = resolveLinks(link);
    if (folder.isEmpty()) {
        return false;
    }
    if (QFileInfo(folder).isDir()) {
        return true;
    }
    const QString parent = QFileInfo(folder).path();
    if (parent == folder || !ensurePrivateFolder(parent)) {
        return false;
    }
    return QDir().mkdir(folder, ownerOnlyFolder);
}

/// Closes a folder of the user's that an earlier version or another program left open to others. A
/// linked folder is the user's own arrangement and stays as it is.
void restrictToOwner(const QString& folder) {
    const QFileInfo info(folder);
    if (info.isSymLink() ||
        (info.permissions() & ~(ownerOnlyFolder | QFileDevice::ReadUser | QFileDevice::WriteUser |
                                QFileDevice::ExeUser)) == 0) {
        return;
    }
    QFile::setPermissions(folder, ownerOnlyFolder);
}

} // namespace

FileContent readRegularFile(const QString& path, qint64 limit) {
    const QFileInfo info(path);
    if (!info.exists()) {
        const bool isLoop = info.isSymLink() && resolveLinks(path).isEmpty();
        return isLoop ? FileError::NotRegular : FileError::Missing;
    }
    if (!info.isFile()) {
        return FileError::NotRegular;
    }
    if (info.size() > limit) {
        return FileError::TooLarge;
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return FileError::Unreadable;
    }
    // One byte more than allowed tells a file that grew, or that lies about its size, from a good
    // one.
    QByteArray content = file.read(limit + 1);
    if (file.error() != QFileDevice::NoError) {
        return FileError::Unreadable;
    }
    if (content.size() > limit) {
        return FileError::TooLarge;
    }
    return content;
}

bool replacePrivateFile(const QString& path, const QByteArray& content) {
    const QString folder = QFileInfo(path).path();
    if (!ensurePrivateFolder(folder)) {
        return false;
    }
    restrictToOwner(folder);
    const QString target = resolveLinks(path);
    if (target.isEmpty() || !ensurePrivateFolder(QFileInfo(target).path())) {
        return false;
    }
    QSaveFile file(target);
    if (!file.open(QIODevice::WriteOnly) || !file.setPermissions(ownerOnlyFile)) {
        return false;
    }
    return file.write(content) == content.size() && file.commit();
}

QString describe(FileError error) {
    switch (error) {
    case FileError::Missing:
        return QStringLiteral("no such file");
    case FileError::NotRegular:
        return QStringLiteral("not a regular file");
    case FileError::TooLarge:
        return QStringLiteral("too large");
    case FileError::Unreadable:
        return QStringLiteral("cannot be read");
    }
    Q_UNREACHABLE();
}

} // namespace quorvantel::platform
