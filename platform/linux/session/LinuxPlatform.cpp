#include "platform/linux/session/LinuxPlatform.h"

#include "platform/linux/portal/DesktopNotification.h"
#include "platform/linux/session/SessionManagerLoss.h"

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

LinuxPlatform::LinuxPlatform(const X11Display& display, StartContext& start)
    : m_displayLossReport(display),
      m_rawEvents(display),
      m_panelHost(display),
      m_hotKeys(display, m_rawEvents, [this] { return m_panelHost.decidesAboutTyping(); }),
      m_keyboardGuard(display, [this] { m_panelHost.reclaimKeyboard(); }),
      m_keyCapture(display, m_hotKeys),
      m_clickMonitor(display, m_rawEvents),
      m_windowBackdrop(display),
      m_windowFrame(display),
      m_windowActivator(display, m_userTime),
      m_startupNotifier(display, m_userTime),
      m_workspace(m_bundleReader, &m_startupNotifier, m_settingsPanels),
      m_screens(display),
      m_x11Settings(display),
      m_imageLoader(
          [this] { return m_x11Settings.values().value("Net/IconThemeName").toString(); }),
      m_callerActivation(display, m_userTime),
      m_requests(start, m_callerActivation),
      m_loginItem(loginProgram(), tellAndLog) {}

std::unique_ptr<Platform> makePlatform(StartContext& start) {
    surviveSessionManagerLoss();
    const auto display = X11Display::current();
    if (!display) {
        qWarning("Quorvantel: this session offers no X server, which the launcher needs");
        return nullptr;
    }
    auto platform = std::make_unique<LinuxPlatform>(*display, start);
    restoreBusAddress(start);
    return platform;
}

} // namespace quorvantel::platform
