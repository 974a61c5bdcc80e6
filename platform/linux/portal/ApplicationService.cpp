#include "platform/linux/portal/ApplicationService.h"

#include "platform/Directories.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDebug>

#include <array>
#include <chrono>
#include <utility>

namespace quorvantel::platform {

namespace {

const QString path = QStringLiteral("/org/quorvantel/Quorvantel");
const QString applicationInterface = QStringLiteral("org.freedesktop.Application");

constexpr std::chrono::milliseconds patience{500};

// Of the D-Bus Specification.
constexpr unsigned int doNotQueue = 4;
constexpr unsigned int nameExists = 3;

struct Action {
    QStringView name;
    ApplicationRequest request;
};

/// As the desktop entry names them.
constexpr std::array actions{
    Action{u"settings", ApplicationRequest::OpenSettings},
    Action{u"help", ApplicationRequest::ShowHelp},
    Action{u"start-at-login", ApplicationRequest::ToggleStartAtLogin},
    Action{u"quit", ApplicationRequest::Quit},
};

CallerToken tokenIn(const QVariantMap& platformData) {
    const auto text = [&platformData](const char* key) {
        return platformData.value(QString::fromLatin1(key)).toString().toUtf8();
    };
    const QByteArray id = text("desktop-startup-id");
    const QByteArray token = text("activation-token");
    return {.startupId = id.isEmpty() ? token : id,
            .activationToken = token.isEmpty() ? id : token};
}

void log(const QString& message) {
    qWarning().noquote() << QStringLiteral("Quorvantel: ") + message;
}

} // namespace

ApplicationService::ApplicationService(QDBusConnection bus) : m_bus(std::move(bus)) {}

void ApplicationService::receive(Handler handler) {
    m_handler = std::move(handler);
    if (!m_bus.isConnected()) {
        log(QStringLiteral("no session bus answers, so the desktop's menus do not reach it"));
        return;
    }
    m_bus.registerObject(path, this, QDBusConnection::ExportScriptableSlots);
    requestName();
}

void ApplicationService::requestName() {
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("RequestName"));
    call << launcherIdentifier.toString() << doNotQueue;
    auto* const watcher =
        new QDBusPendingCallWatcher(m_bus.asyncCall(call, int{patience.count()}), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this](QDBusPendingCallWatcher* finished) {
                const QDBusPendingReply<unsigned int> reply = *finished;
                finished->deleteLater();
                if (reply.isError()) {
                    log(QStringLiteral("the session bus gives no name: ") +
                        reply.error().message());
                } else if (reply.value() == nameExists) {
                    handOver();
                }
            });
}

void ApplicationService::handOver() {
    QDBusMessage call = QDBusMessage::createMethodCall(
        launcherIdentifier.toString(), path, applicationInterface, QStringLiteral("Activate"));
    call << QVariantMap();
    auto* const watcher =
        new QDBusPendingCallWatcher(m_bus.asyncCall(call, int{patience.count()}), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this](QDBusPendingCallWatcher* finished) {
                finished->deleteLater();
                if (finished->isError()) {
                    log(QStringLiteral("what holds the name %1 on the session bus does not answer, "
                                       "so this launcher goes on alone")
                            .arg(launcherIdentifier));
                } else {
                    m_handler(ApplicationRequest::Quit, {});
                }
            });
}

void ApplicationService::Activate(const QVariantMap& platformData) {
    m_handler(ApplicationRequest::Summon, tokenIn(platformData));
}

void ApplicationService::Open(const QStringList& /*uris*/, const QVariantMap& platformData) {
    Activate(platformData);
}

void ApplicationService::ActivateAction(const QString& action, const QVariantList& /*parameter*/,
                                        const QVariantMap& platformData) {
    for (const Action& known : actions) {
        if (known.name == action) {
            m_handler(known.request, tokenIn(platformData));
            return;
        }
    }
    sendErrorReply(QDBusError::InvalidArgs, QStringLiteral("no such action: ") + action);
}

} // namespace quorvantel::platform
