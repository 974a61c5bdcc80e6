#pragma once

class QWindow;

namespace quorvantel::platform {

/// What the desktop draws of a window: the frame and title bar of an ordinary one, the blur behind
/// the panel. Main thread only.
class WindowFrame {
public:
    enum class Appearance {
        System, ///< As the desktop's user set it up.
        Light,
        Dark,
    };

    virtual ~WindowFrame() = default;

    /// Asks for it in this appearance from now on, whether or not the window is shown; a desktop
    /// that has no such choice goes on as it is.
    virtual void setAppearance(QWindow& window, Appearance appearance) = 0;
};

} // namespace quorvantel::platform
