#include "platform/TestFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>

#include <stdexcept>

namespace quorvantel {

QString inHome(const QString& relativePath) {
    return QDir::homePath() + QLatin1Char('/') + relativePath;
}

void writeFile(const QString& path, const QByteArray& content) {
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
        throw std::runtime_error("cannot write " + path.toStdString());
    }
}

void writeProgram(const QString& path, const QByteArray& content) {
    writeFile(path, content);
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

QByteArray readFile(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void makeFifo(const QString& path) {
    if (mkfifo(QFile::encodeName(path).constData(), S_IRUSR | S_IWUSR) != 0) {
        throw std::runtime_error("cannot make " + path.toStdString());
    }
}

} // namespace quorvantel
