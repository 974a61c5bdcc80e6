#pragma once

#include "platform/WindowBackdrop.h"
#include "platform/linux/x11/X11Display.h"

namespace quorvantel::platform {

/// Speaks to compositing managers: KWin blurs on request and says so on the root window; picom
/// blurs and shadows every window by its user's rules, a shadow that is a window included, so that
/// the launcher must not bring one there.
class X11WindowBackdrop : public WindowBackdrop {
public:
    explicit X11WindowBackdrop(const X11Display& display);

    bool isComposited() const override { return compositingManager() != XCB_WINDOW_NONE; }
    bool castsShadows() const override;
    bool offersBlur() const override;
    void setBlurBehind(QWindow& window, const QRegion& region) override;

private:
    xcb_window_t compositingManager() const;
    bool blursOnRequest() const;
    bool isPicom(xcb_window_t manager) const;

    X11Display m_display;
    xcb_atom_t m_managerSelection;
    xcb_atom_t m_blurRegion;
};

} // namespace quorvantel::platform
