#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QVariantMap>

#include <functional>
#include <optional>

namespace quorvantel::platform {

/// What a request to the XDG Desktop Portal came to.
struct PortalResponse {
    static constexpr unsigned int success = 0;
    static constexpr unsigned int cancelledByUser = 1;

    unsigned int code;
    QVariantMap results;
};

/// One request to the XDG Desktop Portal (`org.freedesktop.portal.Request`), whose response may
/// take as long as a user thinks about it. Without this object nobody waits for it any more.
class PortalRequest : public QObject {
    Q_OBJECT

public:
    /// Nothing when there is no such portal or none that answers the call at once.
    using Receiver = std::function<void(const std::optional<PortalResponse>&)>;

    /// `arguments` go before `options`. `receiver` is called once, from the event loop, and may end
    /// this object.
    PortalRequest(QDBusConnection bus, const QString& interface, const QString& method,
                  const QVariantList& arguments, QVariantMap options, Receiver receiver);

private Q_SLOTS:
    void responded(const QDBusMessage& response);

private:
    void finish(const std::optional<PortalResponse>& response);

    Receiver m_receiver;
};

} // namespace quorvantel::platform
