#pragma once

#include "platform/linux/LaunchEnvironment.h"

#include <QString>
#include <QStringList>

namespace quorvantel::platform {

/// A program to be started.
struct ProgramStart {
    /// The program, a path or a name in PATH, and its arguments; not empty.
    QStringList command;
    /// Where the program begins; the user's home folder when empty.
    QString folder;
    LaunchEnvironment environment;
    /// The desktop entry that the program belongs to, if any. Docks and the like look for it in the
    /// program's environment.
    QString entry;
};

/// Starts a program that runs on its own: in a session of its own, with nothing of the launcher's
/// files, outliving it. Its end leaves no zombie as long as the GLib main context runs; one line is
/// logged when it fails at once.
///
/// Returns as soon as the program is being executed, empty then, and otherwise why it cannot be.
QString startProgram(ProgramStart start);

} // namespace quorvantel::platform
