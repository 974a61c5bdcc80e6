#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

#include <optional>

namespace quorvantel::markdown {

/// A folder, on disk or in Qt's resources, from outside of which nothing is read.
class ContainedFolder {
public:
    /// A directory's path, or a Qt resource prefix such as ":/help".
    explicit ContainedFolder(QString path);

    /// From a "file:" URL without a host or a "qrc:" URL. Any other URL is a folder without files.
    static ContainedFolder fromUrl(const QUrl& url);

    /// The path of a file in the folder or in folders of it; absent when the name is absolute, has
    /// a ".." in it, leads out of the folder by symbolic links, or names no regular file.
    std::optional<QString> find(const QString& relativePath) const;

    /// The bytes of a file; absent also when it has more than `maximumSize` bytes or cannot be
    /// read.
    std::optional<QByteArray> read(const QString& relativePath, qint64 maximumSize) const;

private:
    QString m_path;
};

} // namespace quorvantel::markdown
