#include "support/WindowManager.h"

#include "support/WaitUntil.h"

#include <stdexcept>

namespace quorvantel::testing {
namespace {

ChildProcess::Launch managerLaunch(const QByteArray& display, const QString& name,
                                   const QString& busAddress) {
    ChildProcess::Launch launch{.program = name};
    if (name == QStringLiteral("i3")) {
        // Without settings it asks its user for some.
        launch.arguments = {QStringLiteral("-c"), QStringLiteral("/dev/null")};
    }
    launch.environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), busAddress);
    launch.environment.insert(QStringLiteral("GSETTINGS_BACKEND"), QStringLiteral("memory"));
    launch.environment.insert(QStringLiteral("NO_AT_BRIDGE"), QStringLiteral("1"));
    launch.environment.insert(QStringLiteral("KWIN_COMPOSE"), QStringLiteral("N"));
    launch.environment.insert(QStringLiteral("DISPLAY"), QString::fromLocal8Bit(display));
    // An isolated home hides the system's data, where the window manager has its theme.
    launch.environment.insert(QStringLiteral("XDG_DATA_DIRS"), QStringLiteral("/usr/share"));
    return launch;
}

bool isManaged(const XConnection& connection) {
    const QByteArray check = QByteArrayLiteral("_NET_SUPPORTING_WM_CHECK");
    const std::vector<std::uint32_t> child = connection.property(connection.root(), check);
    // A manager that died leaves the property of the root window, but not the window it names.
    return child.size() == 1 && connection.property(child.front(), check) == child;
}

} // namespace

WindowManager::WindowManager(const XConnection& connection, const QByteArray& display,
                             const QString& name, const QString& busAddress)
    : m_process(managerLaunch(display, name, busAddress)) {
    // KWin loads much before it begins, and several of them may begin at once.
    if (!waitUntil([&connection] { return isManaged(connection); }, 3 * patience)) {
        throw std::runtime_error(name.toStdString() + " does not manage the display");
    }
}

} // namespace quorvantel::testing
