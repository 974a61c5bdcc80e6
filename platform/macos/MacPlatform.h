#pragma once

#include "platform/Platform.h"
#include "platform/macos/MacApplicationRequests.h"
#include "platform/macos/MacBundleReader.h"
#include "platform/macos/MacClickMonitor.h"
#include "platform/macos/MacColorArchive.h"
#include "platform/macos/MacDirectories.h"
#include "platform/macos/MacGlobalHotKeys.h"
#include "platform/macos/MacImageLoader.h"
#include "platform/macos/MacInstalledApplications.h"
#include "platform/macos/MacKeyCapture.h"
#include "platform/macos/MacKeyboard.h"
#include "platform/macos/MacLoginItem.h"
#include "platform/macos/MacPanelHost.h"
#include "platform/macos/MacScreens.h"
#include "platform/macos/MacSettingsPanels.h"
#include "platform/macos/MacSystemAppearance.h"
#include "platform/macos/MacUserDefaults.h"
#include "platform/macos/MacWindowActivator.h"
#include "platform/macos/MacWindowFrame.h"
#include "platform/macos/MacWorkspace.h"

namespace quorvantel::platform {

/// macOS, as AppKit and Carbon answer for it. The application object must exist.
///
/// This header and those it includes are plain C++: what is Objective-C in a class stands in a
/// struct of its own (`Native` and the like) in the class's .mm file, so that one layout is
/// compiled everywhere. The few headers that only Objective-C++ can include say so.
class MacPlatform final : public Platform {
public:
    Directories& directories() override { return m_directories; }
    UserDefaults& userDefaults() override { return m_userDefaults; }
    ColorArchive& colorArchive() override { return m_colorArchive; }
    BundleReader& bundleReader() override { return m_bundleReader; }
    InstalledApplications& installedApplications() override { return m_installedApplications; }
    SettingsPanels& settingsPanels() override { return m_settingsPanels; }
    Workspace& workspace() override { return m_workspace; }
    GlobalHotKeys& globalHotKeys() override { return m_globalHotKeys; }
    KeyCapture& keyCapture() override { return m_keyCapture; }
    Keyboard& keyboard() override { return m_keyboard; }
    ClickMonitor* clickMonitor() override { return &m_clickMonitor; }
    PanelHost& panelHost() override { return m_panelHost; }
    WindowActivator& windowActivator() override { return m_windowActivator; }
    WindowFrame& windowFrame() override { return m_windowFrame; }
    Screens& screens() override { return m_screens; }
    SystemAppearance& systemAppearance() override { return m_systemAppearance; }
    ImageLoader& imageLoader() override { return m_imageLoader; }
    ApplicationRequests& applicationRequests() override { return m_requests; }
    LoginItem& loginItem() override { return m_loginItem; }

private:
    MacDirectories m_directories;
    MacUserDefaults m_userDefaults;
    MacColorArchive m_colorArchive;
    MacBundleReader m_bundleReader;
    MacInstalledApplications m_installedApplications;
    MacSettingsPanels m_settingsPanels;
    MacWorkspace m_workspace;
    MacGlobalHotKeys m_globalHotKeys;
    MacKeyCapture m_keyCapture;
    MacKeyboard m_keyboard;
    MacClickMonitor m_clickMonitor;
    MacScreens m_screens;
    MacPanelHost m_panelHost{m_screens};
    MacWindowActivator m_windowActivator;
    MacWindowFrame m_windowFrame;
    MacSystemAppearance m_systemAppearance;
    MacImageLoader m_imageLoader;
    MacLoginItem m_loginItem;
    MacApplicationRequests m_requests{m_loginItem};
};

} // namespace quorvantel::platform
