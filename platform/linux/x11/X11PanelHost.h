#pragma once

#include "platform/PanelHost.h"
#include "platform/linux/x11/X11PanelKeyboard.h"
#include "platform/linux/x11/X11WindowBackdrop.h"

namespace quorvantel::platform {

/// Hosts the panel in windows that no window manager manages.
class X11PanelHost : public PanelHost {
public:
    /// Both must outlive the host.
    X11PanelHost(X11PanelKeyboard& keyboard, X11WindowBackdrop& backdrop)
        : m_keyboard(keyboard), m_backdrop(backdrop) {}

    Qt::WindowFlags windowFlags() const override;
    std::unique_ptr<PanelSurface> makeSurface(const PanelContent& content) override;

private:
    X11PanelKeyboard& m_keyboard;
    X11WindowBackdrop& m_backdrop;
};

} // namespace quorvantel::platform
