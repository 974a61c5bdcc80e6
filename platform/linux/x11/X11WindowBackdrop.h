#pragma once

#include "platform/WindowBackdrop.h"
#include "platform/linux/x11/X11Display.h"
#include "platform/linux/x11/X11EventHandler.h"

#include <xcb/xfixes.h>

#include <cstdint>
#include <map>
#include <vector>

namespace quorvantel::platform {

/// Speaks to compositing managers: KWin blurs on request and says so on the root window; picom
/// blurs and shadows every window by its user's rules, a shadow that is a window included, so that
/// the launcher must not bring one there. Nor does picom say what the rules are, so that nothing
/// may rely on its blur.
///
/// The X server reports who becomes the compositing manager and what the root window says, so it is
/// asked only once at the start and about each new manager.
class X11WindowBackdrop : public WindowBackdrop, public X11EventHandler {
    Q_OBJECT

public:
    X11WindowBackdrop(const X11Display& display, X11EventDispatcher& events);

    bool isComposited() const override { return m_state.isComposited; }
    bool castsShadows() const override { return m_state.isComposited && m_state.isPicom; }
    bool offersBlur() const override { return m_state.isComposited && m_state.blursOnRequest; }
    void setBlurBehind(QWindow& window, const QRegion& region) override;

    bool handleEvent(const xcb_generic_event_t& event) override;

private:
    struct State {
        bool isComposited = false;
        bool isPicom = false;
        bool blursOnRequest = false;

        friend bool operator==(const State&, const State&) = default;
    };

    void handleProperty(const xcb_property_notify_event_t& event);
    void handleOwner(const xcb_xfixes_selection_notify_event_t& event);
    State stateNow() const;
    bool isPicom(xcb_window_t manager) const;
    void setState(const State& state);

    X11Display m_display;
    xcb_atom_t m_managerSelection;
    xcb_atom_t m_blurRegion;
    /// The type of the event about a selection's owner; 0 when the server lacks the extension.
    std::uint8_t m_selectionEvent = 0;
    State m_state;
    /// What the windows' property holds, in pixels, so that it is not set again to the same.
    std::map<xcb_window_t, std::vector<std::uint32_t>> m_blurRegions;
};

/// What "_KDE_NET_WM_BLUR_BEHIND_REGION" holds for a region in points on a screen of this scale:
/// the x, y, width and height of each rectangle in pixels. Rectangles that meet still do.
std::vector<std::uint32_t> blurRegionInPixels(const QRegion& region, qreal scale);

} // namespace quorvantel::platform
