#pragma once

#include "panel/LauncherPanel.h"
#include "panel/LauncherView.h"
#include "panel/PanelPlacement.h"
#include "platform/ClickMonitor.h"
#include "platform/PanelHost.h"
#include "platform/Screens.h"
#include "platform/WindowBackdrop.h"

#include <QObject>

#include <functional>
#include <memory>

namespace quorvantel {

/// Owns the launcher panel: shows it on the screen under the mouse, sizes it, remembers where the
/// user dragged it, places it anew when the screens change, if it can on the screen that it is on,
/// and hides it on a click elsewhere.
///
/// The panel is created once and kept, so that showing it creates nothing. Showing never activates
/// the launcher; the application in front stays in front.
class LauncherPanelController : public QObject {
    Q_OBJECT

public:
    /// Takes ownership of `view`. The platform objects must outlive the controller.
    LauncherPanelController(LauncherView* view, platform::PanelHost& host,
                            const platform::Screens& screens, platform::ClickMonitor& clickMonitor,
                            platform::WindowBackdrop& backdrop, QObject* parent = nullptr);
    ~LauncherPanelController() override;

    /// Called at the end of each hiding.
    std::function<void()> onDismiss;

    /// Called before a hiding that no one asked this object for: the window system closes the
    /// panel, as when it hands a chord over to the desktop.
    std::function<void()> onClose;

    /// Places the panel, brings it to the front, gives it the keyboard and watches for clicks
    /// elsewhere.
    void show();

    /// Gives the keyboard back to the application in front; the panel stays on the screen until
    /// `hide`, which is to follow. For what may take a while in between.
    void releaseKeyboard();

    /// Stops watching, gives the keyboard back, takes the panel away and calls `onDismiss`.
    void hide();

    /// Runs a task that may take a while from the event loop: at once, or when the panel has just
    /// been shown, only once its first frame is on the way to the screen. The task is dropped with
    /// the controller.
    void runAfterFirstFrame(std::function<void()> task);

    /// Gives the panel another height with its top edge where it is. Ignored while it is hidden.
    void updateHeight(double height);

    bool isVisible() const { return m_panel.isVisible(); }

private:
    void setFrame(const QRectF& frame);
    void screensChanged();
    platform::Screen currentTargetScreen() const;
    void panelDragged();

    platform::PanelHost& m_host;
    const platform::Screens& m_screens;
    platform::ClickMonitor& m_clickMonitor;
    LauncherView* m_view;
    LauncherPanel m_panel;
    PanelPlacement m_placement;
    /// The screen that the panel was placed on; finding the one under the mouse anew takes a round
    /// trip to the display server, which no keystroke is to wait for.
    platform::Screen m_targetScreen;
    /// Exists exactly while the panel is shown.
    std::unique_ptr<platform::ClickMonitor::Token> m_clickAwayMonitor;
};

} // namespace quorvantel
