#include "markdown/ContainedFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <utility>

namespace quorvantel::markdown {

namespace {

bool staysBelow(const QString& relativePath) {
    return !relativePath.isEmpty() && !QDir::isAbsolutePath(relativePath) &&
           !relativePath.contains(QChar::Null) && !relativePath.contains(u'\\') &&
           !relativePath.split(u'/').contains(QStringLiteral(".."));
}

} // namespace

ContainedFolder::ContainedFolder(QString path) : m_path(std::move(path)) {}

ContainedFolder ContainedFolder::fromUrl(const QUrl& url) {
    if (url.isLocalFile() && url.host().isEmpty()) {
        return ContainedFolder(url.toLocalFile());
    }
    if (url.scheme() == QStringLiteral("qrc") && url.host().isEmpty()) {
        return ContainedFolder(QStringLiteral(":") + url.path());
    }
    return ContainedFolder(QString());
}

std::optional<QString> ContainedFolder::find(const QString& relativePath) const {
    if (m_path.isEmpty() || !staysBelow(relativePath)) {
        return std::nullopt;
    }
    const QFileInfo file(QDir(m_path), relativePath);
    if (!file.isFile()) {
        return std::nullopt;
    }
    const QString canonical = file.canonicalFilePath();
    QString folder = QFileInfo(m_path).canonicalFilePath();
    if (!folder.endsWith(u'/')) {
        folder += u'/';
    }
    return canonical.startsWith(folder) ? std::optional(canonical) : std::nullopt;
}

std::optional<QByteArray> ContainedFolder::read(const QString& relativePath,
                                                qint64 maximumSize) const {
    const auto path = find(relativePath);
    if (!path) {
        return std::nullopt;
    }
    QFile file(*path);
    if (!file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    const QByteArray bytes = file.read(maximumSize + 1);
    if (file.error() != QFileDevice::NoError || bytes.size() > maximumSize) {
        return std::nullopt;
    }
    return bytes;
}

} // namespace quorvantel::markdown
