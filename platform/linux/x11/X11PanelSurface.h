#pragma once

#include "platform/PanelContent.h"
#include "platform/PanelSurface.h"
#include "platform/linux/x11/X11PanelFrame.h"
#include "platform/linux/x11/X11PanelKeyboard.h"
#include "platform/linux/x11/X11PanelShadow.h"
#include "platform/linux/x11/X11WindowBackdrop.h"

namespace quorvantel::platform {

/// The panel as windows that no window manager manages: the panel's own, the content's inside it,
/// and the shadow's behind it.
///
/// The content's window is as large as the panel can grow, whatever the panel's height; the panel's
/// own window uncovers more or less of it. So a panel that is shown or grows allocates nothing,
/// waits for no new buffer of the display server and draws only what has changed. For the same
/// reason the native windows exist from the beginning.
class X11PanelSurface : public PanelSurface {
    Q_OBJECT

public:
    /// `keyboard` and `backdrop` must outlive the surface.
    X11PanelSurface(const PanelContent& content, X11PanelKeyboard& keyboard,
                    X11WindowBackdrop& backdrop);
    ~X11PanelSurface() override;

    void setPlace(const PanelPlace& place) override;
    void show() override;
    void hide() override;
    bool isVisible() const override { return m_frame.isVisible(); }
    bool awaitsFirstFrame() const override { return m_awaitsFirstFrame; }
    void releaseKeyboard() override { m_keyboard.release(); }
    QPoint contentOrigin() const override { return {}; }
    void paintAround(QPainter& /*painter*/) override {}
    bool isComposited() const override { return m_backdrop.isComposited(); }
    bool offersBlur() const override { return m_backdrop.offersBlur(); }
    void setBlurBehind(bool isBlurred) override;
    QPointF position(const QMouseEvent& event) const override;
    std::optional<QPointF> mousePosition() const override;

private:
    void endFirstFrame();
    void followBackdrop();
    void fitOutline();
    void fitMask();
    void fitBlur();
    void fitShadow();
    QRegion outline() const;

    QWindow& m_content;
    int m_cornerRadius;
    X11PanelKeyboard& m_keyboard;
    X11WindowBackdrop& m_backdrop;
    X11PanelFrame m_frame;
    X11PanelShadow m_shadow;
    /// In Qt's plane; the window itself may be given another size by the server for a moment.
    QRect m_geometry;
    bool m_isBlurred = false;
    bool m_awaitsFirstFrame = false;
};

} // namespace quorvantel::platform
