#include "platform/PrivateFile.h"

#include <QFile>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>

namespace quorvantel::platform {

namespace {

namespace fs = std::filesystem;

// The limit that the kernels of Linux and macOS put on a chain of symbolic links is of this order.
constexpr int maximumLinkDepth = 40;

constexpr mode_t ownerOnlyFolder = S_IRWXU;
constexpr mode_t ownerOnlyFile = S_IRUSR | S_IWUSR;

FileError errorOf(int code) {
    switch (code) {
    case ENOENT:
    case ENOTDIR:
        return FileError::Missing;
    case ELOOP:
    case ENXIO:
        return FileError::NotRegular;
    default:
        return FileError::Unreadable;
    }
}

/// An open file, closed with this object.
class Descriptor {
public:
    explicit Descriptor(int number) : m_number(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (m_number >= 0) {
            ::close(m_number);
        }
    }

    int number() const { return m_number; }

private:
    int m_number;
};

/// What was a file a moment ago may have become a FIFO, whose opening would wait for a writer.
int openToRead(int folder, const char* name) {
    return ::openat(folder, name, O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
}

/// A file's bytes to its end, or more than `limit` of them if there are so many. Nothing if it
/// cannot be read. `size` is what the file claims to have: it may grow, and those in /proc, which
/// come in pieces, claim to be empty.
std::optional<QByteArray> readUpTo(qint64 limit, const Descriptor& file, qint64 size) {
    constexpr qint64 chunkSize = 64LL * 1024;

    QByteArray content(size + 1, Qt::Uninitialized);
    qint64 length = 0;
    while (length <= limit) {
        if (length == content.size()) {
            content.resize(length + chunkSize);
        }
        const ssize_t count = ::read(file.number(), content.data() + length,
                                     static_cast<size_t>(content.size() - length));
        if (count < 0 && errno != EINTR) {
            return std::nullopt;
        }
        length += std::max<ssize_t>(count, 0);
        const bool isShort = count > 0 && length < content.size();
        if (count == 0 || (isShort && size > 0)) {
            break;
        }
    }
    content.truncate(length);
    return content;
}

/// The path behind a chain of links, whether or not anything is there; nothing for a loop.
std::optional<fs::path> resolveLinks(const fs::path& path) {
    fs::path resolved = path;
    for (int depth = 0; depth < maximumLinkDepth; ++depth) {
        std::error_code error;
        const fs::path target = fs::read_symlink(resolved, error);
        if (error) {
            return resolved;
        }
        // Not made shorter: a ".." after a link to a folder means that folder's parent.
        resolved = resolved.parent_path() / target;
    }
    return std::nullopt;
}

bool isFolder(const fs::path& path) {
    std::error_code error;
    return fs::is_directory(path, error);
}

bool ensurePrivateFolder(const fs::path& path) {
    if (path.empty() || isFolder(path)) {
        return true;
    }
    const std::optional<fs::path> folder = resolveLinks(path);
    if (!folder || *folder == folder->parent_path() ||
        !ensurePrivateFolder(folder->parent_path())) {
        return false;
    }
    // Someone else may have been quicker.
    return ::mkdir(folder->c_str(), ownerOnlyFolder) == 0 || isFolder(*folder);
}

/// Whether anything but a device is at the path, or nothing. A link to /dev/null is someone's wish
/// to keep nothing, and no name for a new file.
bool mayBeReplaced(const fs::path& path) {
    std::error_code error;
    const fs::file_type type = fs::status(path, error).type();
    return type != fs::file_type::character && type != fs::file_type::block;
}

/// Opens an empty file at the path for this save alone, over what a save that was killed left
/// there; -1 while another save writes it, or when the path is taken by something else.
int openUnfinished(const std::string& path) {
    const int descriptor = ::open(
        path.c_str(), O_WRONLY | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, ownerOnlyFile);
    if (descriptor < 0) {
        return -1;
    }
    // The lock goes when its process does. Whoever has it has the file only if another save has not
    // finished and renamed it in between.
    struct stat opened {};
    struct stat named {};
    if (::flock(descriptor, LOCK_EX | LOCK_NB) == 0 && ::fstat(descriptor, &opened) == 0 &&
        ::lstat(path.c_str(), &named) == 0 && opened.st_dev == named.st_dev &&
        opened.st_ino == named.st_ino && S_ISREG(opened.st_mode) && opened.st_nlink == 1 &&
        ::fchmod(descriptor, ownerOnlyFile) == 0 && ::ftruncate(descriptor, 0) == 0) {
        return descriptor;
    }
    ::close(descriptor);
    return -1;
}

/// A new file, for the user only, that takes the place of another once it is complete. Until then
/// its destructor removes it. When the process is killed first, it stays under a name that the next
/// save uses again, so that such files never add up.
class PendingFile {
public:
    explicit PendingFile(const fs::path& target)
        : m_target(target),
          m_path(target.native() + ".unfinished"),
          m_descriptor(openUnfinished(m_path)) {
        if (m_descriptor < 0) {
            m_path = target.native() + ".XXXXXX";
            m_descriptor = ::mkostemp(m_path.data(), O_CLOEXEC);
        }
    }

    PendingFile(const PendingFile&) = delete;
    PendingFile& operator=(const PendingFile&) = delete;

    ~PendingFile() {
        if (m_descriptor >= 0) {
            ::close(m_descriptor);
            ::unlink(m_path.c_str());
        }
    }

    bool write(const QByteArray& content) {
        const char* next = content.cbegin();
        while (m_descriptor >= 0 && next != content.cend()) {
            const ssize_t written =
                ::write(m_descriptor, next, static_cast<size_t>(content.cend() - next));
            if (written < 0 && errno != EINTR) {
                return false;
            }
            next += std::max<ssize_t>(written, 0);
        }
        return m_descriptor >= 0;
    }

    bool commit() {
        if (::fsync(m_descriptor) != 0 || ::rename(m_path.c_str(), m_target.c_str()) != 0) {
            return false;
        }
        ::close(std::exchange(m_descriptor, -1));
        return true;
    }

private:
    fs::path m_target;
    std::string m_path;
    int m_descriptor;
};

fs::path nativePath(const QString& path) {
    return QFile::encodeName(path).toStdString();
}

} // namespace

FileContent readRegularFile(const QString& path, qint64 limit) {
    const QByteArray native = QFile::encodeName(path);
    struct stat status {};
    if (::stat(native.constData(), &status) != 0) {
        return errorOf(errno);
    }
    if (!S_ISREG(status.st_mode)) {
        return FileError::NotRegular;
    }
    const Descriptor file(openToRead(AT_FDCWD, native.constData()));
    if (file.number() < 0) {
        return errorOf(errno);
    }
    if (::fstat(file.number(), &status) != 0 || !S_ISREG(status.st_mode)) {
        return FileError::NotRegular;
    }
    if (status.st_size > limit) {
        return FileError::TooLarge;
    }
    auto content = readUpTo(limit, file, status.st_size);
    if (!content) {
        return FileError::Unreadable;
    }
    return content->size() > limit ? FileContent(FileError::TooLarge)
                                   : FileContent(*std::move(content));
}

FileContent readListedFile(int folder, const char* name, qint64 limit) {
    // More than most files have.
    constexpr qint64 usualSize = qint64{32} * 1024;
    const Descriptor file(openToRead(folder, name));
    if (file.number() < 0) {
        return errorOf(errno);
    }
    auto content = readUpTo(limit, file, usualSize);
    if (!content) {
        return FileError::Unreadable;
    }
    return content->size() > limit ? FileContent(FileError::TooLarge)
                                   : FileContent(*std::move(content));
}

bool replacePrivateFile(const QString& path, const QByteArray& content) {
    const fs::path link = nativePath(path);
    if (!ensurePrivateFolder(link.parent_path())) {
        return false;
    }
    const std::optional<fs::path> target = resolveLinks(link);
    if (!target || !ensurePrivateFolder(target->parent_path()) || !mayBeReplaced(*target)) {
        return false;
    }
    PendingFile file(*target);
    return file.write(content) && file.commit();
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
