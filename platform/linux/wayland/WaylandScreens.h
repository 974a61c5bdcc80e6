#pragma once

#include "platform/linux/gui/QtScreens.h"

namespace quorvantel::platform {

/// The compositor's outputs. It tells no client which one is the main one or has the mouse, but
/// places what is new by itself.
class WaylandScreens final : public QtScreens {
    Q_OBJECT

public:
    std::optional<Screen> main() const override { return std::nullopt; }
    std::optional<Screen> underMouse() const override { return std::nullopt; }
};

} // namespace quorvantel::platform
