#include "support/IsolatedHome.h"

#include <QDir>

namespace quorvantel::testing {

IsolatedHome::IsolatedHome() {
    qputenv("HOME", path().toLocal8Bit());
    qputenv("XDG_DATA_HOME", dataHome().toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", configHome().toLocal8Bit());
    qputenv("XDG_CACHE_HOME", m_directory.filePath(QStringLiteral(".cache")).toLocal8Bit());
    qputenv("XDG_RUNTIME_DIR", path().toLocal8Bit());
    qputenv("XDG_DATA_DIRS", m_directory.filePath(QStringLiteral("usr/share")).toLocal8Bit());
    qunsetenv("XDG_CURRENT_DESKTOP");
    qunsetenv("DISPLAY");
    qunsetenv("WAYLAND_DISPLAY");
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    qunsetenv("SESSION_MANAGER");
    qputenv("LC_ALL", "C.UTF-8");
    QDir().mkpath(dataHome());
    QDir().mkpath(configHome());
}

} // namespace quorvantel::testing
