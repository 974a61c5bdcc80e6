#include "platform/linux/session/LateAccessibility.h"

#include <utility>

namespace quorvantel::platform {

namespace {

constexpr auto variable = "QT_LINUX_ACCESSIBILITY_ALWAYS_ON";

} // namespace

LateAccessibility::LateAccessibility()
    : m_hasSetVariable(!qEnvironmentVariableIsSet(variable) && qputenv(variable, "1")) {
    QAccessible::installActivationObserver(this);
}

LateAccessibility::~LateAccessibility() {
    QAccessible::removeActivationObserver(this);
}

void LateAccessibility::accessibilityActiveChanged(bool isActive) {
    if (isActive && std::exchange(m_hasSetVariable, false)) {
        qunsetenv(variable);
    }
}

} // namespace quorvantel::platform
