#pragma once

#include "platform/linux/wayland/DesktopClicks.h"
#include "platform/linux/wayland/ForeignToplevels.h"
#include "platform/linux/wayland/LayerSurface.h"
#include "platform/linux/wayland/PanelPopups.h"
#include "platform/linux/wayland/WaylandBlur.h"
#include "platform/linux/wayland/WaylandConnection.h"
#include "platform/linux/wayland/WaylandPanelSurface.h"

#include <memory>
#include <optional>

namespace quorvantel::platform {

/// The panel as a layer surface.
///
/// The surface is as large as the panel can grow, whatever the panel's height; where nothing is
/// drawn, clicks go to what is below. So a panel that grows needs no new size from the compositor,
/// and its top edge cannot move.
///
/// While the panel is hidden its surface is parked: beyond the edge of the output, below all
/// windows and without the keyboard. Showing it is then a single commit, together with the first
/// frame. That does not do everywhere: a compositor with several outputs picks one only when the
/// surface takes its role, and KWin gives the keyboard back only when the role ends. There the role
/// is taken anew at each showing.
class LayerPanelSurface : public WaylandPanelSurface {
    Q_OBJECT

public:
    /// `connection` must outlive the surface, and `keyboard` its making.
    LayerPanelSurface(const PanelContent& content, const WaylandConnection& connection,
                      const WaylandKeyboard& keyboard, WaylandPointer<zwlr_layer_shell_v1> shell);
    ~LayerPanelSurface() override;

    void setPlace(const PanelPlace& place) override;
    void show() override;
    void hide() override;
    void releaseKeyboard() override;
    QPoint contentOrigin() const override;
    bool offersBlur() const override { return m_blur.isAvailable(); }
    void setBlurBehind(bool isBlurred) override;

protected:
    QRect panelRect() const override;

private:
    void watchDesktop();
    bool takeRole();
    std::unique_ptr<LayerSurface> makeRole(wl_surface& surface) const;
    void dropRole();
    void loseRole();
    void park();
    bool isParkable() const;
    bool isOnAnotherScreen() const;
    void fit();
    void fitBlur();
    void fitLayer();
    void commit();
    wl_surface& surface() const { return *WaylandConnection::surfaceOf(content()); }
    /// Where the window's top-left corner is on the output while the panel is shown, and while not.
    QPoint shownPosition() const;
    QPoint hiddenPosition() const;

    /// The largest panel's with its shadow, in points.
    QSize m_size;
    int m_cornerRadius;
    const WaylandConnection& m_connection;
    WaylandPointer<zwlr_layer_shell_v1> m_shell;
    ForeignToplevels m_toplevels;
    DesktopClicks m_desktopClicks;
    WaylandBlur m_blur;
    PanelPopups m_popups;
    std::unique_ptr<LayerSurface> m_role;
    /// That of the role; absent until the compositor says which one it picked.
    std::optional<ScreenId> m_screen;
    PanelPlace m_place;
    bool m_isBlurred = false;
};

} // namespace quorvantel::platform
