#pragma once

#include "platform/linux/wayland/WaylandOutputs.h"
#include "platform/linux/wayland/WaylandPanelSurface.h"

namespace quorvantel::platform {

/// The panel in a window that covers the screen but for the desktop's bars, and is transparent
/// around the panel: for compositors without layer surfaces, such as GNOME's, where a client places
/// only what is inside its windows.
///
/// The window is mapped anew at each showing: a new window gets the keyboard, and the one that had
/// it gets it back afterwards, while raising a window that is there already is refused. A click
/// beside the panel is the window's, and so swallowed.
class ToplevelPanelSurface : public WaylandPanelSurface {
    Q_OBJECT

public:
    /// `connection` must outlive the surface, and `keyboard` its making.
    ToplevelPanelSurface(const PanelContent& content, const WaylandConnection& connection,
                         const WaylandKeyboard& keyboard);
    ~ToplevelPanelSurface() override;

    void setPlace(const PanelPlace& place) override;
    void show() override;
    void hide() override;
    void releaseKeyboard() override { takeAway(); }
    QPoint contentOrigin() const override;
    bool offersBlur() const override { return false; }
    void setBlurBehind(bool /*isBlurred*/) override {}

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    QRect panelRect() const override;

private:
    void takeAway();

    WaylandOutputs m_outputs;
    PanelPlace m_place;
};

} // namespace quorvantel::platform
