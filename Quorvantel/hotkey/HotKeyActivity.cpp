#include "hotkey/HotKeyActivity.h"

namespace quorvantel {

void HotKeyActivity::set(const std::optional<HotKeyBinding>& active,
                         const std::optional<HotKeyError>& error) {
    if (active == m_active && error == m_error) {
        return;
    }
    m_active = active;
    m_error = error;
    Q_EMIT changed();
}

} // namespace quorvantel
