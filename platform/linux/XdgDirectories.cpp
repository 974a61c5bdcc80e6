#include "platform/linux/XdgDirectories.h"

#include <QDir>
#include <QFile>

namespace quorvantel::platform {

namespace {

QString baseDirectory(const char* variable, const QString& fallback) {
    const QString path = QFile::decodeName(qgetenv(variable));
    // The XDG Base Directory Specification has relative paths ignored.
    return QDir::cleanPath(
        QDir::isAbsolutePath(path) ? path : QDir::homePath() + QLatin1Char('/') + fallback);
}

} // namespace

QString XdgDirectories::applicationSupport() const {
    return baseDirectory("XDG_DATA_HOME", QStringLiteral(".local/share"));
}

QString XdgDirectories::configuration() const {
    return baseDirectory("XDG_CONFIG_HOME", QStringLiteral(".config"));
}

} // namespace quorvantel::platform
