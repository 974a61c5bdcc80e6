#include "platform/linux/session/LinuxPlatform.h"

#include "platform/linux/portal/DesktopNotification.h"

#include <QCoreApplication>
#include <QDebug>

namespace quorvantel::platform {

namespace {

QString loginProgram() {
    return QCoreApplication::applicationDirPath() + QStringLiteral("/start-in-session");
}

void tellAndLog(const QString& text) {
    qInfo().noquote() << text;
    notifyUser(QDBusConnection::sessionBus(), text);
}

} // namespace

LinuxPlatform::LinuxPlatform(DisplayServer& server, StartContext& start)
    : m_server(server),
      m_accessibilityBus(start.accessibilityBus),
      m_workspace(m_bundleReader, &server.startupNotifier(), m_settingsPanels, start.environment,
                  start.busAddress),
      m_systemAppearance(m_portalSettings, server.settingsManager(), m_paletteAppearance),
      m_imageLoader([this] { return iconTheme(); }),
      m_requests(start, server.callerActivation()),
      m_loginItem(loginProgram(), tellAndLog) {}

QString LinuxPlatform::iconTheme() const {
    const SettingsManager* const manager = m_server.settingsManager();
    if (manager != nullptr) {
        return manager->values().value("Net/IconThemeName").toString();
    }
    const PortalValues& told = m_portalSettings.values();
    // A portal may tell GNOME's settings elsewhere, too, and the toolkit knows KDE's by itself.
    return told.contains(QStringLiteral("org.kde.kdeglobals.General"))
               ? QString()
               : told.value(QStringLiteral("org.gnome.desktop.interface"))
                     .value(QStringLiteral("icon-theme"))
                     .toString();
}

} // namespace quorvantel::platform
