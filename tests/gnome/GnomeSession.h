#pragma once

#include "support/ChildProcess.h"
#include "support/SessionBus.h"

#include <QDBusConnection>
#include <QTemporaryDir>

#include <initializer_list>

namespace quorvantel::testing {

/// gnome-shell without a screen to show its output on, with the service that runs the commands of
/// custom key bindings, and a user's keyboard (Mutter's RemoteDesktop). Makes itself the session of
/// this process, before there is an application object.
class GnomeSession {
public:
    /// Returns once keys are taken. Throws std::runtime_error when that does not happen.
    GnomeSession();
    ~GnomeSession();

    /// Presses keys one after the other and lets go of them in reverse order; the kernel's codes.
    void press(std::initializer_list<int> keys);

private:
    ChildProcess::Launch launch(const QString& program, const QStringList& arguments) const;
    void await(const QString& busName) const;
    void awaitShell() const;
    QString call(const QString& path, const QString& interface, const QString& method,
                 const QVariantList& arguments = {}) const;
    void setKeyDown(int key, bool down) const;

    QTemporaryDir m_folder;
    SessionBus m_bus{m_folder.path()};
    QDBusConnection m_connection;
    /// What gnome-shell asks for the session at the start.
    ChildProcess m_loginManager;
    ChildProcess m_shell;
    ChildProcess m_mediaKeys;
    QString m_keyboard;
};

} // namespace quorvantel::testing
