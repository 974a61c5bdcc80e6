#pragma once

#include "platform/ApplicationRequests.h"
#include "platform/BundleReader.h"
#include "platform/ClickMonitor.h"
#include "platform/ColorArchive.h"
#include "platform/Directories.h"
#include "platform/GlobalHotKeys.h"
#include "platform/ImageLoader.h"
#include "platform/InstalledApplications.h"
#include "platform/KeyCapture.h"
#include "platform/Keyboard.h"
#include "platform/LoginItem.h"
#include "platform/PanelHost.h"
#include "platform/Screens.h"
#include "platform/SettingsPanels.h"
#include "platform/SystemAppearance.h"
#include "platform/UserDefaults.h"
#include "platform/WindowActivator.h"
#include "platform/WindowFrame.h"
#include "platform/Workspace.h"

namespace quorvantel::platform {

/// Everything that the launcher needs of the operating system.
class Platform {
public:
    virtual ~Platform() = default;

    virtual Directories& directories() = 0;
    virtual UserDefaults& userDefaults() = 0;
    virtual ColorArchive& colorArchive() = 0;
    virtual BundleReader& bundleReader() = 0;
    virtual InstalledApplications& installedApplications() = 0;
    virtual SettingsPanels& settingsPanels() = 0;
    virtual Workspace& workspace() = 0;
    virtual GlobalHotKeys& globalHotKeys() = 0;
    virtual KeyCapture& keyCapture() = 0;
    virtual Keyboard& keyboard() = 0;
    /// Null where no click elsewhere can be seen; `PanelSurface::keyboardLost` tells of it then.
    virtual ClickMonitor* clickMonitor() = 0;
    virtual PanelHost& panelHost() = 0;
    virtual WindowActivator& windowActivator() = 0;
    virtual WindowFrame& windowFrame() = 0;
    virtual Screens& screens() = 0;
    virtual SystemAppearance& systemAppearance() = 0;
    virtual ImageLoader& imageLoader() = 0;
    virtual ApplicationRequests& applicationRequests() = 0;
    virtual LoginItem& loginItem() = 0;
};

} // namespace quorvantel::platform
