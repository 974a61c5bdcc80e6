#pragma once

#include <functional>

namespace quorvantel::platform {

/// What the user can ask of the launcher from outside its windows.
enum class ApplicationRequest {
    Summon,
    OpenSettings,
    ShowHelp,
    ToggleStartAtLogin,
    Quit,
};

/// Brings what the user asks of the running launcher from outside its windows: by starting it once
/// more, by its icon, by what the icon's menu offers, or by a key that the desktop binds to any of
/// these. Main thread only.
class ApplicationRequests {
public:
    using Handler = std::function<void(ApplicationRequest)>;

    virtual ~ApplicationRequests() = default;

    /// Begins to hand requests over, each from the event loop; those that came since the process
    /// began have waited until now. What the handler has `WindowActivator` activate comes to the
    /// front on behalf of whoever made the request, even if it does so later. To be called once.
    virtual void receive(Handler handler) = 0;
};

} // namespace quorvantel::platform
