#include "hotkey/HotKeyActivity.h"

namespace quorvantel {

void HotKeyActivity::set(const std::optional<HotKeyBinding>& active,
                         const std::optional<HotKeyError>& failure) {
    if (active == m_active && failure == m_failure) {
        return;
    }
    m_active = active;
    m_failure = failure;
    Q_EMIT changed();
}

} // namespace quorvantel
