#include "platform/linux/shortcuts/StartCommand.h"

#include <QCoreApplication>
#include <QDir>
#include <QRegularExpression>

namespace quorvantel::platform {

QString startCommand() {
    return quotedForShell(QDir::cleanPath(QCoreApplication::applicationDirPath() +
                                          QStringLiteral("/" QUORVANTEL_START_PROGRAM)));
}

QString quotedForShell(const QString& path) {
    static const QRegularExpression plain(QStringLiteral("^[A-Za-z0-9/._+-]+$"));
    if (plain.match(path).hasMatch()) {
        return path;
    }
    QString escaped = path;
    return u'\'' + escaped.replace(u'\'', QStringLiteral("'\\''")) + u'\'';
}

} // namespace quorvantel::platform
