#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QString>

#include <sys/stat.h>

#include <stdexcept>

namespace quorvantel::testing {

/// A path in the test's own home folder.
inline QString inHome(const QString& relativePath) {
    return QDir::homePath() + u'/' + relativePath;
}

/// Writes a file and the folders above it.
inline void writeFile(const QString& path, const QByteArray& content) {
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
        throw std::runtime_error("cannot write " + path.toStdString());
    }
}

/// Writes a program, or a script that begins with "#!".
inline void writeProgram(const QString& path, const QByteArray& content) {
    writeFile(path, content);
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

/// The content of a file; empty when there is none.
inline QByteArray readFile(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Makes a named pipe, which nobody writes to.
inline void makeFifo(const QString& path) {
    if (mkfifo(QFile::encodeName(path).constData(), S_IRUSR | S_IWUSR) != 0) {
        throw std::runtime_error("cannot make " + path.toStdString());
    }
}

/// The permission bits of what is at a path, links followed; 0 when there is nothing.
inline mode_t modeOf(const QString& path) {
    struct stat status {};
    return stat(QFile::encodeName(path).constData(), &status) == 0 ? status.st_mode & 07777U : 0;
}

} // namespace quorvantel::testing
