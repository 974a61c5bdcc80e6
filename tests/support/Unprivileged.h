#pragma once

#include <QString>
#include <QTemporaryDir>

namespace quorvantel::testing {

/// Gives up the rights of root for good, for a program that refuses to have them; nothing to do for
/// anyone else. Says whether they are gone. For a child process before it executes a program: calls
/// nothing but the kernel.
bool giveUpRoot();

/// A folder of the test's own that a program without the rights of root can write to, such as its
/// XDG_RUNTIME_DIR. It goes with this object.
class UnprivilegedFolder {
public:
    /// Throws std::runtime_error when the folder cannot be made.
    UnprivilegedFolder();

    QString path() const { return m_directory.path(); }
    QString filePath(const QString& name) const { return m_directory.filePath(name); }

private:
    QTemporaryDir m_directory;
};

} // namespace quorvantel::testing
