#pragma once

#include "platform/KeyCapture.h"

namespace quorvantel::platform {

/// Sees key presses through a local event monitor, which is shown the launcher's own events before
/// they are dispatched. What the system or another application takes for itself never gets here.
class MacKeyCapture final : public KeyCapture {
public:
    std::unique_ptr<Token> capture(QWindow& window, Handler handler) override;

private:
    class Watch;

    /// The capture that reports.
    Watch* m_watch = nullptr;
};

} // namespace quorvantel::platform
