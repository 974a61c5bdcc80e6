#include "platform/linux/EntryCommand.h"

#include <glib.h>

namespace quorvantel::platform {

namespace {

/// What a field code within a word stands for; nothing for those of files and addresses, and for
/// the ones that are no longer in use.
QString replacement(QChar code, const DesktopEntry& entry, const QString& path) {
    switch (code.unicode()) {
    case u'%':
        return QStringLiteral("%");
    case u'c':
        return entry.localizedText(G_KEY_FILE_DESKTOP_KEY_NAME);
    case u'k':
        return path;
    default:
        return {};
    }
}

QString expanded(const QString& word, const DesktopEntry& entry, const QString& path) {
    QString result;
    for (qsizetype i = 0; i < word.size(); ++i) {
        if (word[i] == u'%' && i + 1 < word.size()) {
            result += replacement(word[++i], entry, path);
        } else {
            result += word[i];
        }
    }
    return result;
}

QStringList iconArguments(const DesktopEntry& entry) {
    const QString icon = entry.localizedText(G_KEY_FILE_DESKTOP_KEY_ICON);
    return icon.isEmpty() ? QStringList() : QStringList{QStringLiteral("--icon"), icon};
}

} // namespace

QStringList entryCommand(const DesktopEntry& entry, const QString& path) {
    QStringList command;
    for (const QString& word : entry.command()) {
        if (word == QStringLiteral("%i")) {
            command += iconArguments(entry);
            continue;
        }
        const QString argument = expanded(word, entry, path);
        // A word of codes alone that stand for nothing is no argument.
        if (word.isEmpty() || !argument.isEmpty()) {
            command += argument;
        }
    }
    return command;
}

} // namespace quorvantel::platform
