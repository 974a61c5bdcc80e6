#pragma once

#include "platform/SystemAppearance.h"
#include "platform/linux/SettingsManager.h"
#include "platform/linux/portal/PortalSettings.h"
#include "platform/linux/session/ToolkitPreferences.h"

namespace quorvantel::platform {

/// The look that the user chose in the desktop's settings, whatever the desktop; hands what
/// concerns the toolkit on to it. Where the desktop tells nothing about dark or light, the fallback
/// decides.
class DesktopSystemAppearance : public SystemAppearance {
    Q_OBJECT

public:
    /// All outlive this object; `manager` may be null.
    DesktopSystemAppearance(const PortalSettings& portal, const SettingsManager* manager,
                            const SystemAppearance& fallback);

    bool prefersDark() const override;

    /// Translucent surfaces do not give the contrast that the user asked for.
    bool reducesTransparency() const override { return increasesContrast(); }
    bool increasesContrast() const override { return m_preferences.increasesContrast; }

private:
    DesktopPreferences preferences() const;
    void refresh();

    const PortalSettings& m_portal;
    const SettingsManager* m_manager;
    const SystemAppearance& m_fallback;
    DesktopPreferences m_preferences;
    ToolkitPreferences m_toolkit;
};

} // namespace quorvantel::platform
