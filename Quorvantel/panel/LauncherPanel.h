#pragma once

#include "panel/FirstMouseHostingView.h"
#include "panel/LauncherView.h"
#include "panel/PanelShadow.h"
#include "platform/PanelHost.h"
#include "platform/WindowBackdrop.h"

#include <QRect>
#include <QWindow>

namespace quorvantel {

/// The borderless floating window of the launcher. It is transparent; the view inside it draws the
/// rounded surface. The user drags it by any area that is not a control.
class LauncherPanel : public QWindow {
    Q_OBJECT

public:
    /// Takes ownership of `view`, which fills the panel. The platform objects must outlive the
    /// panel.
    LauncherPanel(LauncherView* view, const platform::PanelHost& host,
                  platform::WindowBackdrop& backdrop);

    /// Where the panel is, or will be once it is shown, in window coordinates.
    const QRect& frame() const { return m_frame; }
    void setFrame(const QRect& frame);

    /// The window inside the panel that typing is to reach.
    QWindow& keyboardWindow() const { return *m_hostingView.windowHandle(); }

    /// Whether the panel is shown, but nothing of it has been drawn yet.
    bool awaitsFirstFrame() const { return m_awaitsFirstFrame; }

    QAccessibleInterface* accessibleRoot() const override;

Q_SIGNALS:
    /// The first frame since the panel was shown is being drawn, and will have been once the event
    /// loop is next reached; or will not be since the panel is hidden again.
    void firstFrameDrawn();

    /// The user has dragged the panel to another place.
    void dragged();

    /// The window is about to be closed from outside, by the platform for instance.
    void closing();

protected:
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void exposeEvent(QExposeEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void endFirstFrame();
    void followBackdrop();
    void fitBackdrop();
    void fitMask();
    void fitBlur();
    void fitShadow();

    platform::WindowBackdrop& m_backdrop;
    QRect m_frame;
    FirstMouseHostingView m_hostingView;
    PanelShadow m_shadow;
    bool m_awaitsFirstFrame = false;
};

} // namespace quorvantel
