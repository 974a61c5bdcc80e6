#pragma once

#include <QChar>
#include <Qt>

class QKeyEvent;
class QWindow;

namespace quorvantel::platform {

/// Makes a window a floating panel that takes typing without taking the focus.
///
/// On macOS this is a non-activating `NSPanel`; on X11 an unmanaged window and an active keyboard
/// grab, which leaves the window manager's active window as it is. Main thread only.
class PanelHost {
public:
    virtual ~PanelHost() = default;

    /// The flags that the panel's window is to be created with.
    virtual Qt::WindowFlags windowFlags() const = 0;

    /// Gives the keyboard to the shown panel, or to the window inside it that typing is to reach.
    /// The window may be destroyed while it has the keyboard. The host closes the panel
    /// (`QWindow::close`) when the user presses a key that is to bring up something else which
    /// needs the keyboard, such as the screen lock.
    virtual void takeKeyboard(QWindow& window) = 0;

    /// Gives the keyboard back to the application in front, without a click. Harmless for a window
    /// that does not have it.
    virtual void releaseKeyboard(QWindow& window) = 0;

    /// The Latin character that the key of a press or a release types by itself, whichever
    /// modifiers are held with it: a comma for a French Shift+comma, whose event says "?". Where
    /// the layout has none, as a Greek one, it is that of another layout of the user's. Null for a
    /// key without any and for an event that did not come from the keyboard.
    virtual QChar baseCharacter(const QKeyEvent& event) const = 0;
};

} // namespace quorvantel::platform
