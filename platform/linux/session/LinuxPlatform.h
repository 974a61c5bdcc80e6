#pragma once

#include "platform/Platform.h"
#include "platform/linux/DesktopEntryApplications.h"
#include "platform/linux/DesktopSettingsPanels.h"
#include "platform/linux/GioWorkspace.h"
#include "platform/linux/KeyedColorArchive.h"
#include "platform/linux/PropertyListBundleReader.h"
#include "platform/linux/PropertyListDefaults.h"
#include "platform/linux/XdgDirectories.h"
#include "platform/linux/XdgLoginItem.h"
#include "platform/linux/gui/IconThemeImageLoader.h"
#include "platform/linux/gui/PaletteSystemAppearance.h"
#include "platform/linux/session/DesktopSystemAppearance.h"
#include "platform/linux/session/DisplayLossReport.h"
#include "platform/linux/session/LinuxApplicationRequests.h"
#include "platform/linux/x11/X11CallerActivation.h"
#include "platform/linux/x11/X11ClickMonitor.h"
#include "platform/linux/x11/X11Display.h"
#include "platform/linux/x11/X11HotKeys.h"
#include "platform/linux/x11/X11KeyCapture.h"
#include "platform/linux/x11/X11KeyboardGuard.h"
#include "platform/linux/x11/X11PanelHost.h"
#include "platform/linux/x11/X11RawEvents.h"
#include "platform/linux/x11/X11Screens.h"
#include "platform/linux/x11/X11StartupNotifier.h"
#include "platform/linux/x11/X11UserTime.h"
#include "platform/linux/x11/X11WindowActivator.h"
#include "platform/linux/x11/X11WindowBackdrop.h"
#include "platform/linux/x11/X11WindowFrame.h"

namespace quorvantel::platform {

/// A Linux desktop session on an X server.
class LinuxPlatform : public Platform {
public:
    LinuxPlatform(const X11Display& display, StartContext& start);

    Directories& directories() override { return m_directories; }
    UserDefaults& userDefaults() override { return m_userDefaults; }
    ColorArchive& colorArchive() override { return m_colorArchive; }
    BundleReader& bundleReader() override { return m_bundleReader; }
    InstalledApplications& installedApplications() override { return m_installedApplications; }
    SettingsPanels& settingsPanels() override { return m_settingsPanels; }
    Workspace& workspace() override { return m_workspace; }
    GlobalHotKeys& globalHotKeys() override { return m_hotKeys; }
    KeyCapture& keyCapture() override { return m_keyCapture; }
    ClickMonitor& clickMonitor() override { return m_clickMonitor; }
    PanelHost& panelHost() override { return m_panelHost; }
    WindowActivator& windowActivator() override { return m_windowActivator; }
    WindowBackdrop& windowBackdrop() override { return m_windowBackdrop; }
    WindowFrame& windowFrame() override { return m_windowFrame; }
    Screens& screens() override { return m_screens; }
    SystemAppearance& systemAppearance() override { return m_systemAppearance; }
    ImageLoader& imageLoader() override { return m_imageLoader; }
    ApplicationRequests& applicationRequests() override { return m_requests; }
    LoginItem& loginItem() override { return m_loginItem; }

private:
    DisplayLossReport m_displayLossReport;
    X11RawEvents m_rawEvents;
    // Event filters run last in, first out: a capture keeps key presses from the hotkeys, these
    // keep theirs from the panel, and the time must see the presses that any of them consumes.
    X11PanelHost m_panelHost;
    X11HotKeys m_hotKeys;
    X11KeyboardGuard m_keyboardGuard;
    X11KeyCapture m_keyCapture;
    X11ClickMonitor m_clickMonitor;
    X11WindowBackdrop m_windowBackdrop;
    X11WindowFrame m_windowFrame;
    X11UserTime m_userTime;
    X11WindowActivator m_windowActivator;
    X11StartupNotifier m_startupNotifier;
    XdgDirectories m_directories;
    PropertyListDefaults m_userDefaults;
    KeyedColorArchive m_colorArchive;
    PropertyListBundleReader m_bundleReader;
    DesktopEntryApplications m_installedApplications;
    DesktopSettingsPanels m_settingsPanels;
    GioWorkspace m_workspace;
    X11Screens m_screens;
    PaletteSystemAppearance m_paletteAppearance;
    PortalSettings m_portalSettings{QDBusConnection::sessionBus(), preferenceNamespaces()};
    X11Settings m_x11Settings;
    DesktopSystemAppearance m_systemAppearance{m_portalSettings, m_x11Settings,
                                               m_paletteAppearance};
    IconThemeImageLoader m_imageLoader;
    X11CallerActivation m_callerActivation;
    LinuxApplicationRequests m_requests;
    XdgLoginItem m_loginItem;
};

} // namespace quorvantel::platform
