#pragma once

#include "platform/linux/gui/QtScreens.h"
#include "platform/linux/wayland/WaylandOutputs.h"

namespace quorvantel::platform {

/// The compositor's outputs. It tells no client which one is the main one or has the mouse, but
/// places what is new by itself.
class WaylandScreens final : public QtScreens {
    Q_OBJECT

public:
    /// `connection` must outlive the object.
    explicit WaylandScreens(const WaylandConnection& connection) : m_outputs(connection) {}

    std::optional<Screen> main() const override { return std::nullopt; }
    std::optional<Screen> underMouse() const override { return std::nullopt; }

protected:
    QRect geometry(const QScreen& screen) const override { return m_outputs.geometryOf(screen); }
    QRect visibleGeometry(const QScreen& screen) const override { return geometry(screen); }

private:
    WaylandOutputs m_outputs;
};

} // namespace quorvantel::platform
