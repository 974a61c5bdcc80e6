#pragma once

#include "platform/ApplicationRequests.h"
#include "platform/LoginItem.h"

#include <QMenuBar>

namespace quorvantel::platform {

/// The menu bar that is the system's while a window of the launcher is active: what the toolkit
/// puts there by itself, "Start at Login" in the application menu, and the help.
class ApplicationMenu {
public:
    /// `loginItem` outlives the menu. `handler` is called from the event loop.
    ApplicationMenu(const LoginItem& loginItem, ApplicationRequests::Handler handler);

    QMenuBar& bar() { return m_bar; }

private:
    QMenuBar m_bar;
};

} // namespace quorvantel::platform
