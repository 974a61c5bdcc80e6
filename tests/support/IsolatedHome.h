#pragma once

#include <QString>
#include <QTemporaryDir>

namespace quorvantel::testing {

/// A home folder of the test's own. While it lives, HOME and the XDG variables point into it, and
/// the session's display and bus are out of reach. Construct it before any application object.
class IsolatedHome {
public:
    IsolatedHome();

    QString path() const { return m_directory.path(); }
    QString dataHome() const { return m_directory.filePath(QStringLiteral(".local/share")); }
    QString configHome() const { return m_directory.filePath(QStringLiteral(".config")); }

private:
    QTemporaryDir m_directory;
};

} // namespace quorvantel::testing
