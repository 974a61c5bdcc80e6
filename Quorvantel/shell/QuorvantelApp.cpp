#include "shell/QuorvantelApp.h"

#include <QApplication>
#include <QDebug>

namespace quorvantel {

namespace {

/// Empty while no way is known to work.
QString wayToSummon(const SummonHotKey& hotKey) {
    if (hotKey.leftToUser) {
        return hotKey.leftToUser->instruction + u'\n' + hotKey.leftToUser->configuration;
    }
    const QString press = hotKey.pressText();
    return press.isEmpty() ? QString() : QStringLiteral("press %1 to search").arg(press);
}

} // namespace

QuorvantelApp::QuorvantelApp(platform::Platform& platform)
    : m_platform(platform),
      m_delegate(platform, AppSettings::shared(platform.userDefaults()),
                 ThemeManager::shared(platform.userDefaults(), platform.colorArchive()),
                 platform.directories().applicationSupport() + QStringLiteral("/Quorvantel")) {}

int QuorvantelApp::run() {
    QObject::connect(qApp, &QCoreApplication::aboutToQuit, &m_delegate,
                     &AppDelegate::applicationWillTerminate);
    m_delegate.applicationDidFinishLaunching();
    m_platform.applicationRequests().receive(
        [this](platform::ApplicationRequest request) { m_delegate.answer(request); });
    // Last, since who reads it takes all for ready.
    QObject::connect(&m_delegate.hotKeyService(), &HotKeyService::changed, &m_delegate,
                     [this] { announceHotKey(); });
    announceHotKey();
    return QApplication::exec();
}

void QuorvantelApp::announceHotKey() {
    const QString way = wayToSummon(m_delegate.hotKeyService().state());
    if (!m_hasAnnounced && !way.isEmpty()) {
        m_hasAnnounced = true;
        qInfo().noquote() << QStringLiteral("Quorvantel: ") + way;
    }
}

} // namespace quorvantel
