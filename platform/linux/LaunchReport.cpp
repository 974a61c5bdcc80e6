#include "platform/linux/LaunchReport.h"

#include <utility>

namespace quorvantel::platform {

LaunchReport::LaunchReport(std::weak_ptr<const void> owner, Workspace::Completion completion,
                           StartupNotifier* notifier, QByteArray startupId)
    : m_owner(std::move(owner)),
      m_completion(std::move(completion)),
      m_notifier(notifier),
      m_startupId(std::move(startupId)) {}

void LaunchReport::finish(const QString& error) {
    if (m_owner.expired()) {
        return;
    }
    if (!error.isEmpty() && m_notifier != nullptr && !m_startupId.isEmpty()) {
        m_notifier->fail(std::exchange(m_startupId, {}));
    }
    if (const Workspace::Completion completion = std::exchange(m_completion, nullptr)) {
        completion(error);
    }
}

} // namespace quorvantel::platform
