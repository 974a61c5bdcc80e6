#pragma once

#include "platform/ScreenId.h"

#include <QObject>
#include <QRect>
#include <QRectF>

#include <optional>
#include <vector>

namespace quorvantel::platform {

/// One screen, in points of a plane whose origin is the bottom-left corner of the first screen and
/// whose y grows upward. In `QRectF` terms, `top()` is therefore the lower edge of a rectangle and
/// `bottom()` the upper one.
struct Screen {
    ScreenId id;
    QRectF frame;
    /// `frame` less the bars and docks of the desktop, as far as it tells of them.
    QRectF visibleFrame;

    friend bool operator==(const Screen&, const Screen&) = default;
};

/// The screens, and the conversion from their plane to that of Qt's windows, whose origin is the
/// top-left corner of the first screen and whose y grows downward. Main thread only.
class Screens : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// All screens in the system's order; never empty while a display is connected.
    virtual std::vector<Screen> all() const = 0;

    /// The screen that the system regards as the main one; absent where it has no such notion.
    virtual std::optional<Screen> main() const = 0;

    /// The first screen that has the mouse on it; absent when none has, and where the system does
    /// not tell. May take a round trip to the window system.
    virtual std::optional<Screen> underMouse() const = 0;

    /// The screen that something new is to appear on: that under the mouse, else the main one.
    /// Absent where the system tells of neither, but places windows by itself.
    std::optional<Screen> target() const;

    /// The geometry of a window with the given frame. Where the system alone places windows, the
    /// size holds.
    virtual QRect toWindowGeometry(const QRectF& frame) const = 0;

Q_SIGNALS:
    /// A screen came, went or changed its frame or visible frame. The bars and docks of a desktop
    /// may follow a changed screen a moment later, which is a change of its own.
    void changed();
};

/// The screen of this identity; absent when there is none.
std::optional<Screen> screenWithId(const ScreenId& id, const std::vector<Screen>& screens);

} // namespace quorvantel::platform
