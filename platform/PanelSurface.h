#pragma once

#include "platform/PanelPlace.h"

#include <QObject>
#include <QPoint>
#include <QPointF>

#include <optional>

class QMouseEvent;
class QPainter;

namespace quorvantel::platform {

/// The panel as the desktop sees it: shown and hidden, placed, with the keyboard, with a shadow
/// around it and the desktop behind it. Main thread only.
///
/// The content's window may be larger than the panel, or even cover the whole screen: the panel is
/// then the part of it that begins at `contentOrigin()`, everything around it is transparent but
/// for `paintAround()`, and a click there is one elsewhere. All measures are in points.
class PanelSurface : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// Places the panel, also while it is hidden, for the next showing. The system may follow a
    /// moment later; what the panel shows is laid out for the new size at once.
    virtual void setPlace(const PanelPlace& place) = 0;

    /// Shows the panel at its place, in front of everything else, and gives the keyboard to the
    /// content's window for as long as it is shown. Neither waits for the window system.
    virtual void show() = 0;

    /// Gives the keyboard back to the application in front, without a click, and takes the panel
    /// away. So does the end of the surface.
    virtual void hide() = 0;

    virtual bool isVisible() const = 0;

    /// Whether the panel is shown, but nothing of it has been drawn yet.
    virtual bool awaitsFirstFrame() const = 0;

    /// Gives the keyboard back before the panel is hidden, which is to follow: for what may take a
    /// while in between. The panel stays on the screen where the system can do the one without the
    /// other. Harmless when the panel does not have the keyboard.
    virtual void releaseKeyboard() = 0;

    /// Where the panel's top-left corner is in the content's window.
    virtual QPoint contentOrigin() const = 0;

    /// Draws what belongs around the panel inside the content's window, such as its shadow; nothing
    /// where the desktop or a window of the host's own does it. The painter's origin is that of the
    /// content's window.
    virtual void paintAround(QPainter& painter) = 0;

    /// Whether what the content leaves transparent shows what is behind the panel; if not, the
    /// panel is cut to its outline.
    virtual bool isComposited() const = 0;

    /// Whether the desktop blurs what is behind the panel when it is asked to.
    virtual bool offersBlur() const = 0;

    /// Has the desktop blur what is behind the panel or not, as at first.
    virtual void setBlurBehind(bool isBlurred) = 0;

    /// Where the mouse was at an event of the content's window, on a plane that stays where it is
    /// when the panel moves.
    virtual QPointF position(const QMouseEvent& event) const = 0;

    /// Where the mouse is now, on the same plane. Absent where the system tells of a mouse only
    /// while it is over the content's window, and it is not. May take a round trip to the window
    /// system.
    virtual std::optional<QPointF> mousePosition() const = 0;

Q_SIGNALS:
    /// The system showed the panel on this screen of its own choice, or moved it there.
    void screenChosen(const platform::ScreenId& screen);

    /// The first frame since the panel was shown is being drawn, and will have been once the event
    /// loop is next reached; or will not be since the panel is hidden again.
    void firstFrameDrawn();

    /// The user turned to something else, which took the keyboard: where no click can be seen, this
    /// is the click elsewhere. Never for what `releaseKeyboard` or `hide` brought about.
    void keyboardLost();

    /// The panel is to go, since the system says so: the user pressed a key that brings up
    /// something which needs the keyboard, such as the screen lock, or the surface is lost.
    void closeRequested();

    /// `contentOrigin` or what `paintAround` draws is another one.
    void geometryChanged();

    /// `isComposited` or `offersBlur` says something else.
    void backdropChanged();
};

} // namespace quorvantel::platform
