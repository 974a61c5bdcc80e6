#pragma once

#include "platform/linux/DisplayServer.h"
#include "platform/linux/x11/X11CallerActivation.h"
#include "platform/linux/x11/X11ClickMonitor.h"
#include "platform/linux/x11/X11Display.h"
#include "platform/linux/x11/X11EventDispatcher.h"
#include "platform/linux/x11/X11HotKeys.h"
#include "platform/linux/x11/X11KeyCapture.h"
#include "platform/linux/x11/X11Keyboard.h"
#include "platform/linux/x11/X11KeyboardGuard.h"
#include "platform/linux/x11/X11PanelHost.h"
#include "platform/linux/x11/X11PanelKeyboard.h"
#include "platform/linux/x11/X11RawEvents.h"
#include "platform/linux/x11/X11Screens.h"
#include "platform/linux/x11/X11Settings.h"
#include "platform/linux/x11/X11StartupNotifier.h"
#include "platform/linux/x11/X11UserTime.h"
#include "platform/linux/x11/X11WindowActivator.h"
#include "platform/linux/x11/X11WindowBackdrop.h"
#include "platform/linux/x11/X11WindowFrame.h"

#include <memory>

namespace quorvantel::platform {

/// An X server, by the connection that the toolkit has to it.
class X11DisplayServer final : public DisplayServer {
public:
    /// A connection to the server that DISPLAY names; null when it accepts none.
    static std::shared_ptr<const void> reach();

    /// The server of the application object, which must use X11.
    static std::unique_ptr<DisplayServer> connect();

    explicit X11DisplayServer(const X11Display& display);

    GlobalHotKeys& globalHotKeys() override { return m_hotKeys; }
    KeyCapture& keyCapture() override { return m_keyCapture; }
    Keyboard& keyboard() override { return m_keyboard; }
    ClickMonitor* clickMonitor() override { return &m_clickMonitor; }
    PanelHost& panelHost() override { return m_panelHost; }
    WindowActivator& windowActivator() override { return m_windowActivator; }
    WindowFrame& windowFrame() override { return m_windowFrame; }
    Screens& screens() override { return m_screens; }
    StartupNotifier& startupNotifier() override { return m_startupNotifier; }
    CallerActivation& callerActivation() override { return m_callerActivation; }
    const SettingsManager* settingsManager() const override { return &m_settings; }
    bool isGone() const override;

private:
    X11Display m_display;
    X11EventDispatcher m_events;
    X11RawEvents m_rawEvents;
    X11Keyboard m_keyboard;
    X11PanelKeyboard m_panelKeyboard;
    X11HotKeys m_hotKeys;
    X11KeyboardGuard m_keyboardGuard;
    X11KeyCapture m_keyCapture;
    X11ClickMonitor m_clickMonitor;
    X11WindowBackdrop m_windowBackdrop;
    X11PanelHost m_panelHost{m_panelKeyboard, m_windowBackdrop};
    X11WindowFrame m_windowFrame;
    X11UserTime m_userTime;
    X11WindowActivator m_windowActivator;
    X11StartupNotifier m_startupNotifier;
    X11Screens m_screens;
    X11Settings m_settings;
    X11CallerActivation m_callerActivation;
};

} // namespace quorvantel::platform
