#include "platform/PrivateFile.h"

#include <QFile>

#include <fcntl.h>
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

/// Opens a regular file for reading; otherwise the file stays closed.
std::optional<FileError> openRegular(QFile& file, const QByteArray& path) {
    struct stat status {};
    if (::stat(path.constData(), &status) != 0) {
        return errorOf(errno);
    }
    if (!S_ISREG(status.st_mode)) {
        return FileError::NotRegular;
    }
    // What was a file a moment ago may have become a FIFO, whose opening would wait for a writer.
    const int descriptor = ::open(path.constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (descriptor < 0) {
        return errorOf(errno);
    }
    if (!file.open(descriptor, QIODevice::ReadOnly | QIODevice::Unbuffered,
                   QFileDevice::AutoCloseHandle)) {
        ::close(descriptor);
        return FileError::Unreadable;
    }
    if (::fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)) {
        file.close();
        return FileError::NotRegular;
    }
    return std::nullopt;
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

/// A new file, for the user only, that takes the place of another once it is complete. Until then
/// its destructor removes it.
class PendingFile {
public:
    explicit PendingFile(const fs::path& target)
        : m_target(target),
          m_path(target.native() + ".XXXXXX"),
          m_descriptor(::mkostemp(m_path.data(), O_CLOEXEC)) {}

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
    constexpr qint64 chunkSize = 64LL * 1024;

    QFile file;
    if (const auto error = openRegular(file, QFile::encodeName(path))) {
        return *error;
    }
    if (file.size() > limit) {
        return FileError::TooLarge;
    }
    QByteArray content;
    content.reserve(file.size());
    // Not by the size alone: the file may grow, and those in /proc claim to be empty.
    while (content.size() <= limit) {
        const QByteArray chunk = file.read(std::min(chunkSize, limit - content.size()) + 1);
        if (chunk.isEmpty()) {
            break;
        }
        content += chunk;
    }
    if (file.error() != QFileDevice::NoError) {
        return FileError::Unreadable;
    }
    if (content.size() > limit) {
        return FileError::TooLarge;
    }
    return content;
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
