#pragma once

#include "panel/LauncherPanel.h"
#include "panel/LauncherView.h"
#include "panel/PanelPlacement.h"
#include "platform/ClickMonitor.h"
#include "platform/PanelHost.h"
#include "platform/Screens.h"

#include <QObject>

#include <functional>
#include <memory>

namespace quorvantel {

/// Owns the launcher panel: shows it on the screen under the mouse, or on that which the system
/// picks, sizes it, remembers where the
/// user dragged it, places it anew when the screens change, if it can on the screen that it is on,
/// and hides it on a click elsewhere.
///
/// The panel is created once and kept, so that showing it creates nothing. Showing never activates
/// the launcher; the application in front stays in front.
class LauncherPanelController : public QObject {
    Q_OBJECT

public:
    /// Takes ownership of `view`. The platform objects must outlive the controller; there may be no
    /// click monitor.
    LauncherPanelController(LauncherView* view, platform::PanelHost& host,
                            const platform::Screens& screens, platform::ClickMonitor* clickMonitor,
                            QObject* parent = nullptr);

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

    bool isVisible() const { return m_panel.surface().isVisible(); }

private:
    platform::Screen likelyScreen() const;
    void placeOn(const platform::Screen& screen);
    void setFrame(const QRectF& frame);
    void screensChanged();
    void screenChosen(const platform::ScreenId& id);
    void dragPanel(QPoint step);
    void panelLeft();
    void closeRequested();

    const platform::Screens& m_screens;
    platform::ClickMonitor* m_clickMonitor;
    LauncherView* m_view;
    LauncherPanel m_panel;
    PanelPlacement m_placement;
    /// Whether the system is to pick the screen of this showing and has yet to say which.
    bool m_isScreenOpen = false;
    /// Exists exactly while the panel is shown, if clicks elsewhere can be seen.
    std::unique_ptr<platform::ClickMonitor::Token> m_clickAwayMonitor;
};

} // namespace quorvantel
