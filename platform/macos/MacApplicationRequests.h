#pragma once

#include "platform/ApplicationRequests.h"
#include "platform/macos/ApplicationMenu.h"

#include <memory>

namespace quorvantel::platform {

/// What comes from outside the launcher's windows: that it is opened once more, as from the Finder
/// or by Spotlight, and the menu bar while one of its windows is active.
///
/// The start itself asks for nothing, whoever made it.
class MacApplicationRequests final : public ApplicationRequests {
public:
    /// `loginItem` outlives this object. The application object must exist.
    explicit MacApplicationRequests(const LoginItem& loginItem);
    ~MacApplicationRequests() override;

    void receive(Handler handler) override;

private:
    struct Native;

    const LoginItem& m_loginItem;
    std::unique_ptr<ApplicationMenu> m_menu;
    std::unique_ptr<Native> m_native;
};

} // namespace quorvantel::platform
