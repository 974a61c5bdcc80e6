#pragma once

#include <QObject>
#include <QPointF>
#include <QRect>
#include <QRectF>

#include <optional>
#include <vector>

namespace quorvantel::platform {

/// One screen, in points of a plane whose origin is the bottom-left corner of the first screen and
/// whose y grows upward. In `QRectF` terms, `top()` is therefore the lower edge of a rectangle and
/// `bottom()` the upper one.
struct Screen {
    QRectF frame;
    /// `frame` less the bars and docks of the desktop.
    QRectF visibleFrame;

    friend bool operator==(const Screen&, const Screen&) = default;
};

/// The screens, the mouse pointer, and the conversion between their plane and that of Qt's windows,
/// whose origin is the top-left corner of the first screen and whose y grows downward. Main thread
/// only.
class Screens : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// All screens in the system's order; never empty while a display is connected.
    virtual std::vector<Screen> all() const = 0;

    /// The screen that the system regards as the main one.
    virtual std::optional<Screen> main() const = 0;

    virtual QPointF mouseLocation() const = 0;

    /// The geometry of a window with the given frame.
    virtual QRect toWindowGeometry(const QRectF& frame) const = 0;

    /// The frame of a window with the given geometry.
    virtual QRectF fromWindowGeometry(const QRect& geometry) const = 0;

Q_SIGNALS:
    /// A screen came, went or changed its frame or visible frame. The bars and docks of a desktop
    /// may follow a changed screen a moment later, which is a change of its own.
    void changed();
};

} // namespace quorvantel::platform
