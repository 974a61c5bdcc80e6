#pragma once

#include "platform/PanelHost.h"
#include "platform/linux/wayland/WaylandConnection.h"
#include "platform/linux/wayland/WaylandKeyboard.h"
#include "platform/linux/wayland/WaylandPanelSurface.h"

#include <functional>

namespace quorvantel::platform {

/// Hosts the panel in a layer surface or, where the compositor has none, in a toplevel.
class WaylandPanelHost : public PanelHost {
public:
    /// Has the toolkit let the panel's window be, by its environment variables. To be called before
    /// the application object exists.
    static void prepareToolkit();

    /// Both must outlive the host.
    WaylandPanelHost(const WaylandConnection& connection, const WaylandKeyboard& keyboard);

    /// Called before the panel gives the keyboard back of itself.
    std::function<void()> beforeKeyboardReturns;

    Qt::WindowFlags windowFlags() const override;
    std::unique_ptr<PanelSurface> makeSurface(const PanelContent& content) override;

private:
    std::unique_ptr<WaylandPanelSurface> makeKind(const PanelContent& content) const;
    bool hasLayers() const;

    const WaylandConnection& m_connection;
    const WaylandKeyboard& m_keyboard;
};

} // namespace quorvantel::platform
