#include "platform/linux/shortcuts/PortalRequest.h"

#include <QDBusArgument>
#include <QDBusPendingCallWatcher>

#include <chrono>
#include <utility>

namespace quorvantel::platform {

namespace {

constexpr std::chrono::milliseconds patience{5'000};

/// Different for every request of the process, and a part of an object path.
QString nextToken() {
    static unsigned int count = 0;
    return QStringLiteral("quorvantel%1").arg(++count);
}

} // namespace

PortalRequest::PortalRequest(QDBusConnection bus, const QString& interface, const QString& method,
                             const QVariantList& arguments, QVariantMap options, Receiver receiver)
    : m_receiver(std::move(receiver)) {
    const QString token = nextToken();
    const QString caller = bus.baseService().mid(1).replace(u'.', u'_');
    // The response may come before the answer to the call.
    bus.connect({},
                QStringLiteral("/org/freedesktop/portal/desktop/request/") + caller + u'/' + token,
                QStringLiteral("org.freedesktop.portal.Request"), QStringLiteral("Response"), this,
                SLOT(responded(QDBusMessage)));
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.portal.Desktop"),
        QStringLiteral("/org/freedesktop/portal/desktop"), interface, method);
    options.insert(QStringLiteral("handle_token"), token);
    call.setArguments(arguments + QVariantList{options});
    auto* const watcher =
        new QDBusPendingCallWatcher(bus.asyncCall(call, int{patience.count()}), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this](QDBusPendingCallWatcher* finished) {
                finished->deleteLater();
                if (finished->isError()) {
                    finish(std::nullopt);
                }
            });
}

void PortalRequest::responded(const QDBusMessage& response) {
    const QList<QVariant> arguments = response.arguments();
    if (arguments.size() == 2) {
        finish(PortalResponse{arguments.at(0).toUInt(), qdbus_cast<QVariantMap>(arguments.at(1))});
    }
}

void PortalRequest::finish(const std::optional<PortalResponse>& response) {
    if (const auto receiver = std::exchange(m_receiver, nullptr)) {
        receiver(response);
    }
}

} // namespace quorvantel::platform
