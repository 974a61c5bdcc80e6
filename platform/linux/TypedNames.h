#pragma once

#include <QString>
#include <QStringList>

/// What people type for an application who know its files rather than its name.
namespace quorvantel::platform {

/// What a user would type for the name of a desktop file, given without its extension.
///
/// Of a reverse domain name such as "org.example.Viewer" it is the program's own part: the last one
/// that tells it from others, so that "org.example.Chat.desktop" gives "Chat".
QString typedFileName(const QString& name);

/// What a user would type for a command, given as the program and its arguments: the program's name
/// without its folder, or that of the program behind `env`. Empty when the program only runs what
/// its arguments name, as interpreters and sandboxes do; it would find them all.
QString typedProgram(const QStringList& command);

} // namespace quorvantel::platform
