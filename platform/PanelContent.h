#pragma once

#include <QSize>

class QWindow;

namespace quorvantel::platform {

/// What the panel shows, as its host has to know it.
struct PanelContent {
    /// The toolkit's window that everything is drawn in and that typing is to reach. Its size and
    /// whether it is shown are the host's affair, and so is the window that it is in, if any.
    QWindow& window;

    /// The most that the panel measures, in points.
    QSize largestSize;

    /// The panel is a rectangle with continuous corners (`continuousRoundedRect`) of this radius,
    /// in points; what is beyond them is transparent.
    int cornerRadius;
};

} // namespace quorvantel::platform
