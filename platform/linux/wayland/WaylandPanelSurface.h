#pragma once

#include "platform/PanelContent.h"
#include "platform/PanelSurface.h"
#include "platform/linux/gui/PanelShadow.h"
#include "platform/linux/wayland/SurfaceMouse.h"
#include "platform/linux/wayland/WaylandKeyboard.h"

#include <QTimer>

namespace quorvantel::platform {

/// What every kind of panel on Wayland has in common: its content's window is the panel's own and
/// holds the shadow as well, the compositor says which screen it is on, and it tells of the
/// keyboard by the window's focus.
class WaylandPanelSurface : public PanelSurface {
    Q_OBJECT

public:
    /// `connection` must outlive the surface, and `keyboard` its making.
    WaylandPanelSurface(const PanelContent& content, const WaylandConnection& connection,
                        const WaylandKeyboard& keyboard);

    bool isVisible() const final { return m_isVisible; }
    bool awaitsFirstFrame() const final { return m_awaitsFirstFrame; }
    void paintAround(QPainter& painter) final;
    bool isComposited() const final { return true; }
    QPointF position(const QMouseEvent& event) const final { return m_mouse.position(event); }
    std::optional<QPointF> mousePosition() const final { return m_mouse.lastPosition(); }

Q_SIGNALS:
    /// The panel is about to give the keyboard back of itself.
    void keyboardReturning();

protected:
    QWindow& content() const { return m_content; }
    SurfaceMouse& mouse() { return m_mouse; }

    /// The panel, in the content's window.
    virtual QRect panelRect() const = 0;

    /// The panel is shown from now on, and its next drawing is the first frame.
    void begin();

    /// The panel is hidden from now on.
    void end();

    /// The panel gives the keyboard back of itself.
    void forgetKeyboard();

    /// Says that the user turned to something else, if the panel has the keyboard.
    void loseKeyboard();

private:
    void tellScreen();
    void typeHeld(const QString& letters);
    void endFirstFrame();
    void focusChanged(const QWindow* focused);
    void checkFocus();

    QWindow& m_content;
    PanelShadow m_shadow;
    SurfaceMouse m_mouse;
    bool m_isVisible = false;
    bool m_awaitsFirstFrame = false;
    /// Has not got the keyboard since it was shown.
    bool m_awaitsKeyboard = false;
    /// Has got the keyboard since it was shown, and neither given it back nor lost it.
    bool m_hasKeyboard = false;
    /// Whether it was a menu that last got the focus.
    bool m_isMenuFocused = false;
    QTimer m_focusCheck;
};

} // namespace quorvantel::platform
