#pragma once

#include "platform/ClickMonitor.h"

namespace quorvantel::platform {

/// Observes clicks through a global event monitor, which sees only what other applications get.
/// Unlike one for keys, it takes no permission of the user's.
class MacClickMonitor final : public ClickMonitor {
public:
    std::unique_ptr<Token> observe(std::function<void()> handler) override;
};

} // namespace quorvantel::platform
