#pragma once

#include "platform/linux/DisplayServer.h"
#include "platform/linux/shortcuts/DesktopHotKeys.h"
#include "platform/linux/wayland/WaylandActivation.h"
#include "platform/linux/wayland/WaylandConnection.h"
#include "platform/linux/wayland/WaylandKeyCapture.h"
#include "platform/linux/wayland/WaylandKeyboard.h"
#include "platform/linux/wayland/WaylandPanelHost.h"
#include "platform/linux/wayland/WaylandScreens.h"
#include "platform/linux/wayland/WaylandUserSerial.h"
#include "platform/linux/wayland/WaylandWindowActivator.h"
#include "platform/linux/wayland/WaylandWindowFrame.h"

#include <memory>

namespace quorvantel::platform {

/// A Wayland compositor, by the connection that the toolkit has to it, and the hotkeys of the
/// desktop that it belongs to.
class WaylandDisplayServer final : public DisplayServer {
public:
    /// A connection to the compositor that WAYLAND_DISPLAY names, "wayland-0" where it names none;
    /// null when it accepts none.
    static std::shared_ptr<const void> reach();

    /// The compositor of the application object, which must use Wayland.
    static std::unique_ptr<DisplayServer> connect();

    explicit WaylandDisplayServer(std::unique_ptr<WaylandConnection> connection);

    GlobalHotKeys& globalHotKeys() override { return m_hotKeys; }
    KeyCapture& keyCapture() override { return m_keyCapture; }
    Keyboard& keyboard() override { return m_keyboard; }
    ClickMonitor* clickMonitor() override { return nullptr; }
    PanelHost& panelHost() override { return m_panelHost; }
    WindowActivator& windowActivator() override { return m_windowActivator; }
    WindowFrame& windowFrame() override { return m_windowFrame; }
    Screens& screens() override { return m_screens; }
    StartupNotifier& startupNotifier() override { return m_activation; }
    CallerActivation& callerActivation() override { return m_activation; }
    const SettingsManager* settingsManager() const override { return nullptr; }
    bool isGone() const override;

private:
    std::unique_ptr<WaylandConnection> m_connection;
    QStringList m_desktops;
    WaylandKeyboard m_keyboard;
    WaylandKeyCapture m_keyCapture;
    DesktopHotKeys m_hotKeys;
    WaylandUserSerial m_userSerial;
    WaylandActivation m_activation;
    WaylandWindowActivator m_windowActivator;
    WaylandPanelHost m_panelHost;
    WaylandWindowFrame m_windowFrame;
    WaylandScreens m_screens;
};

} // namespace quorvantel::platform
