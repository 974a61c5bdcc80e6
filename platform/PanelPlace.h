#pragma once

#include "platform/ScreenId.h"

#include <QRect>

#include <optional>

namespace quorvantel::platform {

/// Where the panel is, or is to be.
struct PanelPlace {
    /// Absent: the system picks a screen, that which the user works on.
    std::optional<ScreenId> screen;

    /// In points from the top-left corner of that screen, y growing downward. It may reach beyond
    /// the screen.
    QRect frame;

    friend bool operator==(const PanelPlace&, const PanelPlace&) = default;
};

} // namespace quorvantel::platform
