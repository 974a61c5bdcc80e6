#pragma once

#include <QPointF>
#include <QRectF>

#include <optional>
#include <vector>

namespace quorvantel::platform {

/// One screen, in points. The origin of the common plane is the bottom-left corner of the first
/// screen, y grows upward.
struct Screen {
    QRectF frame;
    /// `frame` less the bars and docks of the desktop.
    QRectF visibleFrame;

    friend bool operator==(const Screen&, const Screen&) = default;
};

/// The screens and the mouse pointer.
///
/// In `QRectF` terms here `top()` is the lower edge (minY) and `bottom()` the upper one (maxY),
/// since y grows upward.
class Screens {
public:
    virtual ~Screens() = default;

    /// All screens in the system's order; never empty while a display is connected.
    virtual std::vector<Screen> all() const = 0;

    /// The screen that the system regards as the main one.
    virtual std::optional<Screen> main() const = 0;

    virtual QPointF mouseLocation() const = 0;
};

} // namespace quorvantel::platform
