#pragma once

#include "platform/WindowActivator.h"
#include "platform/linux/wayland/WaylandActivation.h"

namespace quorvantel::platform {

/// Brings a window to the front by showing it, and by an activation token besides.
///
/// A window that is shown already, but not the active one, is hidden and shown again: so it comes
/// to the workspace that the user is on, and compositors that would only mark it as urgent, or that
/// refuse to activate it, let it have the keyboard. No request restores a minimised one.
class WaylandWindowActivator final : public WindowActivator {
public:
    /// `activation` must outlive the activator.
    explicit WaylandWindowActivator(WaylandActivation& activation) : m_activation(activation) {}

    void activate(QWindow& window) override;

    /// As far as the toolkit draws the frame; of one that the compositor draws it tells nothing.
    QMargins frameMargins(QWindow& window) override;

private:
    WaylandActivation& m_activation;
};

} // namespace quorvantel::platform
