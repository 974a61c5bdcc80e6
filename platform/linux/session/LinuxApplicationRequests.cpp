#include "platform/linux/session/LinuxApplicationRequests.h"

#include <utility>

namespace quorvantel::platform {

namespace {

CallerToken tokenOf(const StartRequest& request) {
    return {.startupId = QByteArray::fromStdString(request.startupId),
            .activationToken = QByteArray::fromStdString(request.activationToken)};
}

} // namespace

LinuxApplicationRequests::LinuxApplicationRequests(StartContext& start,
                                                   CallerActivation& activation)
    : m_activation(activation),
      m_ownStart(start.request),
      m_starts(std::move(start.instance)),
      m_service(QDBusConnection::sessionBus()) {}

void LinuxApplicationRequests::receive(Handler handler) {
    m_handler = std::move(handler);
    m_starts.receive([this](const StartRequest& request) { return admit(request); });
    m_service.receive(
        [this](ApplicationRequest request, const CallerToken& token) { hand(request, token); });
    if (!m_ownStart.startupId.empty()) {
        // Whoever starts the launcher by its icon wants to see it.
        hand(ApplicationRequest::Summon, tokenOf(m_ownStart));
    }
}

QString LinuxApplicationRequests::admit(const StartRequest& request) {
    if (!isSameSession(request, m_ownStart)) {
        const std::string& wayland = m_ownStart.waylandDisplay;
        return QStringLiteral("the launcher already runs on display ") +
               QString::fromStdString(wayland.empty() ? m_ownStart.display : wayland);
    }
    hand(ApplicationRequest::Summon, tokenOf(request));
    return {};
}

void LinuxApplicationRequests::hand(ApplicationRequest request, const CallerToken& token) {
    m_activation.during(token, [this, request] { m_handler(request); });
}

} // namespace quorvantel::platform
