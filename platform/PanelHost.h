#pragma once

#include <QRectF>

class QWindow;

namespace quorvantel::platform {

/// Makes a window a floating panel that takes typing without taking the focus.
///
/// On macOS this is a non-activating `NSPanel`; on X11 an unmanaged window and an active keyboard
/// grab, which leaves the window manager's active window as it is.
class PanelHost {
public:
    virtual ~PanelHost() = default;

    /// Called once, before the window is first shown.
    virtual void prepare(QWindow& window) = 0;

    /// Gives the shown window the keyboard; typing reaches it at once.
    virtual void takeKeyboard(QWindow& window) = 0;

    /// Gives the keyboard back to the application in front, without a click.
    virtual void releaseKeyboard(QWindow& window) = 0;

    /// Places the window. The frame is in the coordinates of `Screens`.
    virtual void setFrame(QWindow& window, const QRectF& frame) = 0;

    /// Where the window is, in the coordinates of `Screens`.
    virtual QRectF frame(const QWindow& window) const = 0;
};

} // namespace quorvantel::platform
