#pragma once

#include "platform/linux/x11/X11Display.h"
#include "platform/linux/x11/X11EventHandler.h"
#include "platform/linux/x11/X11Selection.h"

#include <QObject>

#include <cstdint>
#include <map>
#include <vector>

class QRegion;
class QWindow;

namespace quorvantel::platform {

/// What the desktop shows behind and around translucent windows.
///
/// Speaks to compositing managers: KWin blurs on request and says so on the root window; picom
/// blurs and shadows every window by its user's rules, a shadow that is a window included, so that
/// the launcher must not bring one there. Nor does picom say what the rules are, so that nothing
/// may rely on its blur.
///
/// The X server reports who becomes the compositing manager and what the root window says, so it is
/// asked only once at the start and about each new manager; no answer here waits for it.
class X11WindowBackdrop : public QObject, public X11EventHandler {
    Q_OBJECT

public:
    X11WindowBackdrop(const X11Display& display, X11EventDispatcher& events);

    /// Whether translucent parts of a window show what is behind it; without, they show nothing.
    bool isComposited() const { return m_state.isComposited; }

    /// Whether the desktop itself puts a shadow around the shape of every window, as far as its
    /// user wants one.
    bool castsShadows() const { return m_state.isComposited && m_state.isPicom; }

    /// Whether the desktop blurs what is behind a window when it is asked to.
    bool offersBlur() const { return m_state.isComposited && m_state.blursOnRequest; }

    /// Has the desktop blur what is behind a part of the window, in points from its top-left
    /// corner; nothing for an empty region.
    void setBlurBehind(QWindow& window, const QRegion& region);

    bool handleEvent(const xcb_generic_event_t& event) override;

Q_SIGNALS:
    /// One of the answers is another one from now on.
    void changed();

private:
    struct State {
        bool isComposited = false;
        bool isPicom = false;
        bool blursOnRequest = false;

        friend bool operator==(const State&, const State&) = default;
    };

    void handleProperty(const xcb_property_notify_event_t& event);
    void setManager(State& state, xcb_window_t manager) const;
    State stateNow() const;
    bool isPicom(xcb_window_t manager) const;
    void setState(const State& state);

    X11Display m_display;
    X11Selection m_managerSelection;
    xcb_atom_t m_blurRegion;
    State m_state;
    /// What the windows' property holds, in pixels, so that it is not set again to the same.
    std::map<xcb_window_t, std::vector<std::uint32_t>> m_blurRegions;
};

/// What "_KDE_NET_WM_BLUR_BEHIND_REGION" holds for a region in points on a screen of this scale:
/// the x, y, width and height of each rectangle in pixels. Rectangles that meet still do.
std::vector<std::uint32_t> blurRegionInPixels(const QRegion& region, qreal scale);

} // namespace quorvantel::platform
