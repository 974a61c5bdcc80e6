#include "platform/linux/session/LinuxApplicationRequests.h"

#include <utility>

namespace quorvantel::platform {

LinuxApplicationRequests::LinuxApplicationRequests(StartContext& start,
                                                   CallerActivation& activation)
    : m_activation(activation),
      m_ownStartupId(start.startupId),
      m_starts(std::move(start.instance)),
      m_service(QDBusConnection::sessionBus()) {}

void LinuxApplicationRequests::receive(Handler handler) {
    m_handler = std::move(handler);
    m_starts.receive([this](const StartRequest& request) { return admit(request); });
    m_service.receive([this](ApplicationRequest request, const QByteArray& startupId) {
        hand(request, startupId);
    });
    if (!m_ownStartupId.isEmpty()) {
        // Whoever starts the launcher by its icon wants to see it.
        hand(ApplicationRequest::Summon, m_ownStartupId);
    }
}

QString LinuxApplicationRequests::admit(const StartRequest& request) {
    const QByteArray display = qgetenv("DISPLAY");
    if (!request.display.empty() && !isSameDisplay(request.display, display.toStdString())) {
        return QStringLiteral("the launcher already runs on display ") +
               QString::fromLocal8Bit(display);
    }
    hand(ApplicationRequest::Summon, QByteArray::fromStdString(request.startupId));
    return {};
}

void LinuxApplicationRequests::hand(ApplicationRequest request, const QByteArray& startupId) {
    m_activation.during(startupId, [this, request] { m_handler(request); });
}

} // namespace quorvantel::platform
