#include "shell/QuorvantelApp.h"

#include <QApplication>
#include <QDebug>

namespace quorvantel {

QuorvantelApp::QuorvantelApp(platform::Platform& platform)
    : m_platform(platform),
      m_delegate(platform, AppSettings::shared(platform.userDefaults()),
                 ThemeManager::shared(platform.userDefaults(), platform.colorArchive()),
                 platform.directories().applicationSupport() + QStringLiteral("/Quorvantel")) {}

int QuorvantelApp::run() {
    QObject::connect(qApp, &QCoreApplication::aboutToQuit, &m_delegate,
                     &AppDelegate::applicationWillTerminate);
    m_delegate.applicationDidFinishLaunching();
    if (const auto hotKey = m_delegate.hotKeyActivity().active()) {
        qInfo().noquote()
            << QStringLiteral("Quorvantel: press %1 to search").arg(hotKey->displayText());
    }
    m_platform.applicationRequests().receive(
        [this](platform::ApplicationRequest request) { m_delegate.answer(request); });
    return QApplication::exec();
}

} // namespace quorvantel
