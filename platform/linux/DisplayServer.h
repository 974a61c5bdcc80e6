#pragma once

#include "platform/ClickMonitor.h"
#include "platform/GlobalHotKeys.h"
#include "platform/KeyCapture.h"
#include "platform/Keyboard.h"
#include "platform/PanelHost.h"
#include "platform/Screens.h"
#include "platform/WindowActivator.h"
#include "platform/WindowFrame.h"
#include "platform/linux/CallerActivation.h"
#include "platform/linux/SettingsManager.h"
#include "platform/linux/StartupNotifier.h"

namespace quorvantel::platform {

/// The display server of a session: its share of the platform, and what the rest of the session
/// needs of it. Main thread only.
class DisplayServer {
public:
    virtual ~DisplayServer() = default;

    virtual GlobalHotKeys& globalHotKeys() = 0;
    virtual KeyCapture& keyCapture() = 0;
    virtual Keyboard& keyboard() = 0;
    virtual ClickMonitor* clickMonitor() = 0;
    virtual PanelHost& panelHost() = 0;
    virtual WindowActivator& windowActivator() = 0;
    virtual WindowFrame& windowFrame() = 0;
    virtual Screens& screens() = 0;

    virtual StartupNotifier& startupNotifier() = 0;
    virtual CallerActivation& callerActivation() = 0;
    /// Null where the protocol knows none.
    virtual const SettingsManager* settingsManager() const = 0;

    /// Whether the server ended, which the toolkit may not have noticed yet. From any thread.
    virtual bool isGone() const = 0;
};

} // namespace quorvantel::platform
