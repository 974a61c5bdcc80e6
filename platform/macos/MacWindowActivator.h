#pragma once

#include "platform/WindowActivator.h"

#include <memory>

namespace quorvantel::platform {

/// Makes the launcher the active application and the window its key window, and gives the front
/// back to the application before when no window of the launcher's is left.
class MacWindowActivator final : public WindowActivator {
public:
    /// The application object must exist.
    MacWindowActivator();
    ~MacWindowActivator() override;

    void activate(QWindow& window) override;
    QMargins frameMargins(QWindow& window) override;

private:
    struct Native;

    std::unique_ptr<Native> m_native;
};

} // namespace quorvantel::platform
