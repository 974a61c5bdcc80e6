#include "hotkey/HotKeyError.h"

namespace quorvantel {

QString HotKeyError::description() const {
    if (const auto* failure = std::get_if<RegistrationFailed>(&m_case)) {
        return QStringLiteral("RegisterEventHotKey failed with OSStatus %1.").arg(failure->status);
    }
    return QStringLiteral(
        "Hotkey binding must include ⌘ (cmdKey) or ⌃ (controlKey). Option-only and "
        "Option+Shift-only bindings are rejected by macOS (−9868).");
}

QString HotKeyError::explanation() const {
    const auto* const failure = std::get_if<RegistrationFailed>(&m_case);
    return failure == nullptr || failure->reason.isEmpty() ? description() : failure->reason;
}

} // namespace quorvantel
