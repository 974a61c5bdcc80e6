#pragma once

#include "platform/Platform.h"
#include "platform/linux/DesktopEntryApplications.h"
#include "platform/linux/DesktopSettingsPanels.h"
#include "platform/linux/DisplayServer.h"
#include "platform/linux/GioWorkspace.h"
#include "platform/linux/KeyedColorArchive.h"
#include "platform/linux/PropertyListBundleReader.h"
#include "platform/linux/PropertyListDefaults.h"
#include "platform/linux/XdgDirectories.h"
#include "platform/linux/XdgLoginItem.h"
#include "platform/linux/gui/IconThemeImageLoader.h"
#include "platform/linux/gui/PaletteSystemAppearance.h"
#include "platform/linux/session/AccessibilityBus.h"
#include "platform/linux/session/DesktopSystemAppearance.h"
#include "platform/linux/session/LinuxApplicationRequests.h"

namespace quorvantel::platform {

/// A Linux desktop session: what all of them have, and what the display server adds.
class LinuxPlatform final : public Platform {
public:
    /// `server` must outlive the platform.
    LinuxPlatform(DisplayServer& server, StartContext& start);

    Directories& directories() override { return m_directories; }
    UserDefaults& userDefaults() override { return m_userDefaults; }
    ColorArchive& colorArchive() override { return m_colorArchive; }
    BundleReader& bundleReader() override { return m_bundleReader; }
    InstalledApplications& installedApplications() override { return m_installedApplications; }
    SettingsPanels& settingsPanels() override { return m_settingsPanels; }
    Workspace& workspace() override { return m_workspace; }
    GlobalHotKeys& globalHotKeys() override { return m_server.globalHotKeys(); }
    KeyCapture& keyCapture() override { return m_server.keyCapture(); }
    Keyboard& keyboard() override { return m_server.keyboard(); }
    ClickMonitor* clickMonitor() override { return m_server.clickMonitor(); }
    PanelHost& panelHost() override { return m_server.panelHost(); }
    WindowActivator& windowActivator() override { return m_server.windowActivator(); }
    WindowFrame& windowFrame() override { return m_server.windowFrame(); }
    Screens& screens() override { return m_server.screens(); }
    SystemAppearance& systemAppearance() override { return m_systemAppearance; }
    ImageLoader& imageLoader() override { return m_imageLoader; }
    ApplicationRequests& applicationRequests() override { return m_requests; }
    LoginItem& loginItem() override { return m_loginItem; }

private:
    QString iconTheme() const;

    DisplayServer& m_server;
    AccessibilityBus m_accessibilityBus;
    XdgDirectories m_directories;
    PropertyListDefaults m_userDefaults;
    KeyedColorArchive m_colorArchive;
    PropertyListBundleReader m_bundleReader;
    DesktopEntryApplications m_installedApplications;
    DesktopSettingsPanels m_settingsPanels;
    GioWorkspace m_workspace;
    PaletteSystemAppearance m_paletteAppearance;
    PortalSettings m_portalSettings{QDBusConnection::sessionBus(), preferenceNamespaces()};
    DesktopSystemAppearance m_systemAppearance;
    IconThemeImageLoader m_imageLoader;
    LinuxApplicationRequests m_requests;
    XdgLoginItem m_loginItem;
};

} // namespace quorvantel::platform
