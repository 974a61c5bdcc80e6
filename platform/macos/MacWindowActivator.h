#pragma once

#include "platform/WindowActivator.h"

namespace quorvantel::platform {

/// Makes the launcher the active application, which it is at no other time, and the window its key
/// window.
class MacWindowActivator final : public WindowActivator {
public:
    void activate(QWindow& window) override;
    QMargins frameMargins(QWindow& window) override;
};

} // namespace quorvantel::platform
