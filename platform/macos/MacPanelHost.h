#pragma once

#include "platform/PanelHost.h"
#include "platform/Screens.h"

namespace quorvantel::platform {

/// Hosts the panel in a non-activating `NSPanel`.
class MacPanelHost final : public PanelHost {
public:
    /// `screens` must outlive the host and its surface.
    explicit MacPanelHost(const Screens& screens) : m_screens(screens) {}

    Qt::WindowFlags windowFlags() const override;
    std::unique_ptr<PanelSurface> makeSurface(const PanelContent& content) override;

private:
    const Screens& m_screens;
};

} // namespace quorvantel::platform
